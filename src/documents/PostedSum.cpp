#include "documents/PostedSum.h"

namespace velmar {

namespace {

QString lacksSum(const PostedSum& sum, const QString& tolerance) {
  const QString posted = sum.rows == PostedSum::Rows::OfPartner ? QStringLiteral("COALESCE(N.PARTNER, 0)")
                                                                : QStringLiteral("COALESCE(N.DEBIT, 0)");
  QStringList lacks;
  if (!sum.when.isEmpty()) lacks.append(QStringLiteral("(%1)").arg(sum.when));
  for (const QString& each : sum.amounts) {
    const QString amount = QStringLiteral("COALESCE(%1, 0)").arg(each);
    switch (sum.is) {
      case PostedSum::Is::Equal:
        lacks.append(QStringLiteral("ABS(%1 - %2) > %3").arg(posted, amount, tolerance));
        break;
      case PostedSum::Is::AtLeast:
        lacks.append(QStringLiteral("%2 - %1 > %3").arg(posted, amount, tolerance));
        break;
      case PostedSum::Is::AtMost:
        lacks.append(QStringLiteral("ABS(%1) - ABS(%2) > %3").arg(posted, amount, tolerance));
        break;
      case PostedSum::Is::Present:
        lacks.append(QStringLiteral("ABS(%1) > %2 AND COALESCE(N.DEBITS, 0) = 0").arg(amount, tolerance));
        break;
    }
  }
  return QStringLiteral("(%1)").arg(lacks.join(QStringLiteral(" AND ")));
}

}  // namespace

PostedSum postedGross() {
  // Without a VAT rate the VAT of the lines is not posted.
  return {PostedSum::Rows::OfPartner, PostedSum::Is::Equal, {"(D.TOTALFT + D.TOTALTVA)", "D.TOTALFT"}};
}

PostedSum postedDebit(const QString& amount) {
  return {PostedSum::Rows::Others, PostedSum::Is::Equal, {amount}};
}

QString lacksSum(const std::vector<PostedSum>& sums, const QString& tolerance) {
  QStringList lacking;
  for (const PostedSum& sum : sums) lacking.append(lacksSum(sum, tolerance));
  return lacking.join(QStringLiteral(" OR "));
}

}  // namespace velmar
