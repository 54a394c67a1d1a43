#include "documents/DocumentStore.h"

#include "config/Session.h"
#include "documents/Drafts.h"
#include "store/Database.h"

namespace velmar {

bool DocumentStore::isOpen(const Row& header) const {
  if (kind_.hasDraft) return !header.flag("VALIDAT");
  return header.flag("VALIDAT") && !header.flag("STORNAT");
}

std::optional<Document> DocumentStore::load(const QString& number) const {
  const Recordset header = OpenRs(
      QStringLiteral("SELECT * FROM %1 WHERE %2 = ?").arg(kind_.headerTable, kind_.numberColumn), {number});
  if (header.isEmpty()) return std::nullopt;
  Recordset lines = OpenRs(QStringLiteral("SELECT * FROM %1 WHERE %2 = ? ORDER BY NRLINIE")
                               .arg(kind_.lineTable, kind_.numberColumn),
                           {number});
  return Document{&kind_, header.first().text(kind_.numberColumn), header.first(), lines.takeRows()};
}

Recordset DocumentStore::listWhere(const QString& condition) const {
  const QString order =
      kind_.oldestFirst ? QStringLiteral("ASC NULLS FIRST") : QStringLiteral("DESC NULLS LAST");
  if (kind_.partnerColumn.isEmpty())
    return OpenRs(QStringLiteral("SELECT * FROM %1 WHERE %5 AND Magazie = ? ORDER BY %2 %4, %3 %4")
                      .arg(kind_.headerTable, kind_.dateColumn, kind_.numberColumn, order, condition),
                  {session().gMagazie});
  QString more;
  for (const QString& column : kind_.draftColumns) more += QStringLiteral(", H.%1 AS %1").arg(column);
  return OpenRs(
      QStringLiteral("SELECT H.%1 AS %1, H.%2 AS %2, T.NUME AS NUME, H.%3 AS %3%6 FROM %4 H "
                     "%8 JOIN kt_ter T ON T.COD = H.%3 WHERE %7 AND H.Magazie = ? "
                     "ORDER BY H.%2 %5, H.%1 %5")
          .arg(kind_.numberColumn, kind_.dateColumn, kind_.partnerColumn, kind_.headerTable, order, more,
               condition, kind_.listsUnknownPartner ? QStringLiteral("LEFT") : QStringLiteral("INNER")),
      {session().gMagazie});
}

Recordset InvoiceView::list() const { return listWhere(QStringLiteral("VALIDAT <> 0 AND STORNAT = 0")); }

std::unique_ptr<DocumentStore> storeOf(const DocumentKind& kind) {
  if (kind.hasDraft) return std::make_unique<Drafts>(kind);
  return std::make_unique<InvoiceView>(kind);
}

}  // namespace velmar
