// Orders of hearing devices: the order with its two audiograms, each with a row for each ear.
#pragma once

#include <optional>

#include "store/Filter.h"

namespace velmar {

/// The orders whose device, insurer, patient and doctor exist, with their names: the columns of
/// G_COMANDA_AUDIO, `CAS`, `Articol`, `Pacient`, `Doctor`, `PunctLucru`, `Ureche` and `Diferenta` (what the
/// insurer does not pay, lei without VAT).
extern const ListQuery kAudioOrders;
/// The others: ID_Comanda, Nr, Data, and `Lipseste`, what does not exist.
extern const ListQuery kHiddenAudioOrders;
bool isHiddenOrder(qint64 order);
/// The columns of kAudioOrders that a filter offers.
QList<FilterField> audioOrderFilter();

/// The row of G_COMANDA_AUDIO; an empty row when there is none.
Row storedOrder(qint64 order);
/// All columns that a user fills in, empty; the dates are today, the prices 0.
Row newOrder();

/// Adds the order with four empty rows of audiograms, and returns its key. Number and grade are stored in
/// capitals, prices with 4 decimals. Throws RuleError, naming the column, when a field is empty or not valid,
/// or an order has that number and date.
qint64 addOrder(const Row& order);
/// Writes the columns that differ from `shown` (storedOrder). Throws as addOrder(), also when the order is on
/// an invoice and device, prices or parties differ; ChangedMeanwhile when another workstation has changed
/// these columns.
void saveOrder(const Row& order, const Row& shown);
/// Deletes the order with its audiograms. Throws RuleError when it is, or was, on an invoice.
void removeOrder(qint64 order);

/// The prices of an article as a new order proposes them, lei without VAT.
struct DevicePrices {
  Decimal full;     ///< PretVanzare
  Decimal insured;  ///< CompensareCAS
};
DevicePrices devicePrices(const QString& device);

/// What an audiogram is about.
enum class Audiogram {
  Tone,   ///< hearing threshold in dB at seven frequencies
  Speech  ///< percent of speech understood at 21 loudnesses
};
/// Its table.
QString audiogramTable(Audiogram kind);
/// Its columns, with the frequency (Hz) or the loudness (dB) of each.
struct AudiogramPoint {
  int at;
  QString column;
};
const std::vector<AudiogramPoint>& audiogramPoints(Audiogram kind);

/// The rows of the order, the left ear first: ID_Comanda, UrecheaDreapta, Urechea and the points.
Recordset audiogram(Audiogram kind, qint64 order);
/// Stores a point of one ear; nothing stores null.
void storeAudiogramPoint(Audiogram kind, qint64 order, bool isRight, const QString& column,
                         const std::optional<Decimal>& value);
/// Inserts both rows of the order: the left ear, then the right. `values` in the order of the points.
void insertAudiogram(Audiogram kind, qint64 order, const std::vector<std::optional<Decimal>>& left,
                     const std::vector<std::optional<Decimal>>& right);

}  // namespace velmar
