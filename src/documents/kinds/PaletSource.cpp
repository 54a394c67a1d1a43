#include "documents/kinds/PaletSource.h"

#include "store/Database.h"
#include "store/Schema.h"

namespace velmar {

QString typedPalet(const TypedHeader& header) {
  const QString palet = header.text("TextPalet");
  return palet == QStringLiteral("0") ? QString() : palet;
}

bool hasLeft(const QString& palet) {
  return !OpenRs(
              "SELECT L.DOCID AS DOCID FROM G_DOCUME D INNER JOIN G_LDOCUM L ON D.ID = L.DOCID "
              "WHERE L.PALET = ? AND D.TIPIE = 'E' LIMIT 1",
              {palet})
              .isEmpty();
}

QString PaletSource::namedIn(const TypedHeader& header) const { return typedPalet(header); }

AddedLines PaletSource::lines(const Document& document, TypedHeader& header, const QString& palet) const {
  AddedLines added;
  for (const Row& entry :
       OpenRs("SELECT A.CODART AS CODART, A.UM AS UM, A.DENART AS DENART, A.PRETVFT AS PRETVFT, "
              "A.PRETVFTDEV AS PRETVFTDEV, L.CANT AS CANT, L.COST AS COST, L.PALET AS PALET "
              "FROM G_LDOCUM L INNER JOIN G_DOCUME D ON D.ID = L.DOCID INNER JOIN G_ARTMAG A "
              "ON A.CODART = L.ARTID WHERE L.PALET = ? AND D.TIPIE = 'I' ORDER BY L.DOCID, L.LINIE",
              {palet})
           .takeRows()) {
    Row line = companyTable(document.kind->lineTable).emptyRow();
    for (const char* column : {"CODART", "UM", "CANT", "PALET"})
      line.set(column, Value::raw(entry.value(column)));
    line.set("DENUMIRE", entry.text("DENART").left(kNameWidth));
    complete(line, entry, header);
    added.lines.push_back(std::move(line));
  }
  completeAll(added.lines, document, header);
  return added;
}

}  // namespace velmar
