#include "documents/LineChecks.h"

#include <QSet>

#include "documents/Drafts.h"
#include "util/Messages.h"

namespace velmar {

namespace {

QString brokenRule(const Row& line, const LineCheckColumns& columns) {
  const QString code = line.text("CODART");
  if (line.isNull("CODART") || code.trimmed().isEmpty())
    return QStringLiteral("Va rog completati codul articol ! Validarea nu se poate efectua !");
  if (line.decimal("CANT").isZero())
    return QStringLiteral(
               "Cantitatea pentru articolul cu codul %1 trebuie sa fie diferita de zero ! Validarea nu se "
               "poate efectua !")
        .arg(code);
  if (line.decimal(columns.price) <= 0)
    return QStringLiteral(
               "Pretul unitar pentru articolul cu codul %1 trebuie sa fie un numar pozitiv ! Validarea nu "
               "se poate efectua !")
        .arg(code);
  if (!columns.netPrice.isEmpty() && line.decimal(columns.netPrice).isNegative())
    return discountsTooHighText(code);
  return {};
}

}  // namespace

QString brokenLineRule(const DocumentKind& kind, const std::vector<Row>& lines, QStringList* notices) {
  const LineCheckColumns& columns = kind.lineCheck;
  for (const Row& line : lines) {
    QString broken = brokenRule(line, columns);
    if (!broken.isEmpty()) return broken;
    if (notices && !columns.salePrice.isEmpty() &&
        line.decimal(columns.price) > line.decimal(columns.salePrice))
      notices->append(
          QStringLiteral(
              "Pretul de vanzare este mai mic decat pretul de cumparare pentru articolul cu codul %1 ")
              .arg(line.text("CODART")));
  }
  return {};
}

QString repeatedArticle(const std::vector<Row>& lines) {
  QSet<QString> seen;
  for (const Row& line : lines) {
    QString code = line.text("CODART");
    if (seen.contains(code.toUpper())) return code;
    seen.insert(code.toUpper());
  }
  return {};
}

QString repeatedArticleText(const QString& code) {
  return QStringLiteral(
             "Articolul cu codul %1 se repeta ! Va rugam introduceti articole distincte ! Validarea nu se "
             "poate efectua ! ")
      .arg(code);
}

QString discountsTooHighText(const QString& code) {
  return QStringLiteral("Discounturile depasesc 100% pentru articolul %1 !").arg(code);
}

bool EsteValidDetaliiDocument(const QString& prefix, const QString& number) {
  const DocumentKind& kind = documentKind(prefix);
  const auto document = Drafts(kind).load(number);
  if (!document) return true;
  QStringList notices;
  const QString broken = brokenLineRule(kind, document->lines, &notices);
  for (const QString& notice : notices) Mesaj(notice);
  if (broken.isEmpty()) return true;
  Mesaj(broken);
  return false;
}

}  // namespace velmar
