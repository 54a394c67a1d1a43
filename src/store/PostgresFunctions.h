// SQL functions of a company's database on a server; they return the same results as the functions of the
// same names in a SQLite file.
#pragma once

namespace velmar::postgres {

/// Case-insensitive texts; rounding half to even of the shortest decimal that represents a double; whether a
/// text is a number; the functions of the triggers that keep the stock by warehouse (StockBalance.h).
inline constexpr const char* kFunctions[] = {
    "CREATE EXTENSION IF NOT EXISTS citext",
    "CREATE OR REPLACE FUNCTION round_even(amount double precision, decimals bigint) RETURNS double "
    "precision "
    "LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ "
    "SELECT (CASE WHEN abs(d - trunc(d, n)) * 2 = power(10::numeric, -n) "
    "AND mod(trunc(abs(d) * power(10::numeric, n)), 2) = 0 THEN trunc(d, n) ELSE round(d, n) END)::double "
    "precision "
    "FROM (SELECT amount::text::numeric AS d, decimals::int AS n) AS exact $$",
    "CREATE OR REPLACE FUNCTION is_numeric(typed text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE "
    "AS "
    "$$ "
    "SELECT CASE WHEN typed ~ '^\\s*[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]{1,2})?\\s*$' THEN -1 "
    "ELSE 0 "
    "END $$",
    "CREATE OR REPLACE FUNCTION is_numeric(typed citext) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL "
    "SAFE "
    "AS "
    "$$ SELECT is_numeric(typed::text) $$",
    // The lines that a statement has inserted or deleted.
    "CREATE OR REPLACE FUNCTION stocmag_lines() RETURNS trigger LANGUAGE plpgsql AS $$ "
    "DECLARE sign integer := CASE TG_OP WHEN 'INSERT' THEN 1 ELSE -1 END; "
    "BEGIN "
    "INSERT INTO g_stocmag AS b (artid, codmag, cant) "
    "SELECT m.artid, m.codmag, ROUND(SUM(sign * m.cant)::numeric, 6) FROM (SELECT l.artid, l.codmag, "
    "CASE (SELECT d.tipie FROM g_docume d WHERE d.id = l.docid) WHEN 'I' THEN l.cant WHEN 'S' THEN l.cant "
    "WHEN 'E' THEN -l.cant END AS cant FROM moved l) AS m "
    "WHERE m.artid IS NOT NULL AND m.codmag IS NOT NULL AND m.cant IS NOT NULL GROUP BY m.artid, m.codmag "
    "ON CONFLICT (artid, codmag) DO UPDATE SET cant = ROUND((b.cant + excluded.cant)::numeric, 6); "
    "RETURN NULL; END $$",
    "CREATE OR REPLACE FUNCTION stocmag_line_changed() RETURNS trigger LANGUAGE plpgsql AS $$ "
    "BEGIN "
    "INSERT INTO g_stocmag AS b (artid, codmag, cant) "
    "SELECT l.artid, l.codmag, ROUND(SUM(CASE d.tipie WHEN 'E' THEN -l.cant ELSE l.cant END)::numeric, 6) "
    "FROM (VALUES (OLD.docid, OLD.artid, OLD.codmag, -OLD.cant), (NEW.docid, NEW.artid, NEW.codmag, "
    "NEW.cant)) AS l (docid, artid, codmag, cant) JOIN g_docume d ON d.id = l.docid "
    "WHERE d.tipie IN ('I', 'S', 'E') AND l.artid IS NOT NULL AND l.codmag IS NOT NULL "
    "AND l.cant IS NOT NULL GROUP BY l.artid, l.codmag "
    "ON CONFLICT (artid, codmag) DO UPDATE SET cant = ROUND((b.cant + excluded.cant)::numeric, 6); "
    "RETURN NULL; END $$",
    // All lines of a document: its effect on the stock is kind, multiplied by sign.
    "CREATE OR REPLACE FUNCTION stocmag_document(document citext, kind citext, sign integer) RETURNS void "
    "LANGUAGE plpgsql AS $$ "
    "BEGIN "
    "INSERT INTO g_stocmag AS b (artid, codmag, cant) "
    "SELECT l.artid, l.codmag, ROUND(SUM(sign * CASE kind WHEN 'E' THEN -l.cant ELSE l.cant END)::numeric, "
    "6) FROM g_ldocum l WHERE l.docid = document AND kind IN ('I', 'S', 'E') AND l.artid IS NOT NULL "
    "AND l.codmag IS NOT NULL AND l.cant IS NOT NULL GROUP BY l.artid, l.codmag "
    "ON CONFLICT (artid, codmag) DO UPDATE SET cant = ROUND((b.cant + excluded.cant)::numeric, 6); "
    "END $$",
    "CREATE OR REPLACE FUNCTION stocmag_document_changed() RETURNS trigger LANGUAGE plpgsql AS $$ "
    "BEGIN "
    "IF TG_OP <> 'INSERT' THEN PERFORM stocmag_document(OLD.id, OLD.tipie, -1); END IF; "
    "IF TG_OP <> 'DELETE' THEN PERFORM stocmag_document(NEW.id, NEW.tipie, 1); END IF; "
    "RETURN NULL; END $$"};

}  // namespace velmar::postgres
