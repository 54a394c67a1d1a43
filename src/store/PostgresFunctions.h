// SQL functions of a company's database on a server; they return the same results as the functions of the
// same names in a SQLite file.
#pragma once

namespace velmar::postgres {

/// Case-insensitive texts; rounding half to even of the shortest decimal that represents a double; whether a
/// text is a number.
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
    "$$ SELECT is_numeric(typed::text) $$"};

}  // namespace velmar::postgres
