// Orders that an outside ordering tool writes as XML files.
#pragma once

#include <optional>
#include <QDate>
#include <vector>

#include "util/Decimal.h"

namespace velmar {

/// An order as its file says it. Texts are trimmed; number and grade are in capitals.
struct OrderFile {
  struct Ears {
    std::vector<std::optional<Decimal>> left, right;  ///< in the order of audiogramPoints()
  };
  QString number;
  QDate date;
  struct {
    QString name;  ///< surname and first name
    QString address, cardSeries, cardNumber, personalNumber, cardIssuer;
    QDate cardDate;
  } patient;
  QString doctor;
  struct {
    QString name, address, phone;  ///< no name: a direct sale
  } workPoint;
  QString device, grade, serial;
  Decimal fullPrice, insuredPrice;  ///< lei without VAT
  bool isRight = false;
  QString decision;
  QDate decisionDate;
  QString insurer, insuranceBook;
  QString certificate;
  QDate certificateDate;
  Ears tone, speech;
};

/// Reads the contents of a file. Throws RuleError, which names the element at fault by its path and never its
/// text, for a file of over 1 MB or that is not an order (XmlText), a missing element, an empty number, name
/// or device, a date that does not exist, a price that is none, fewer cells than an audiogram has, a cell
/// that is neither a number nor empty nor "-", or a text that is wider than its column.
OrderFile readOrderFile(const QByteArray& bytes);

/// A price as these files have it: "2.101,50", "2101,50", "2101.50" or "2.101" (groups end with a point),
/// with "lei" or "RON" behind. Nothing for any other text; 4 decimals.
std::optional<Decimal> parsePrice(QString text);

/// Adds the order of the file, and its patient, doctor, work point and insurer unless they are known, in one
/// transaction; returns its key. Throws as readOrderFile(), and RuleError when the file does not exist or an
/// order has that number and date.
qint64 importOrder(const QString& path);

}  // namespace velmar
