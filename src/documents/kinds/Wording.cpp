#include "documents/kinds/Wording.h"

#include "config/Checks.h"
#include "config/Lookups.h"
#include "config/Session.h"
#include "documents/Drafts.h"
#include "documents/HeaderChecks.h"
#include "store/Database.h"

namespace velmar::wording {

namespace {

constexpr int kTotalDecimals = 2;
constexpr int kShownCode = 20;  // characters of a code in a message
const QString kJournal = QStringLiteral("Va rugam selectati jurnalul ! Salvarea nu se poate efectua !");
const QString kPercent = QStringLiteral(
    "Va rugam introduceti o valoare numerica pozitiva pentru Cota TVA ! Salvarea nu se poate efectua !");

Check isEmpty(const QString& column, const QString& text) {
  return refusedWhen(text, column,
                     [column](const Document& document) { return document.typed().text(column).isEmpty(); });
}

bool isPositive(const QString& typed) {
  const auto number = typedNumber(typed);
  return number && !number->isNegative();
}

bool partnerExists(const QString& code) {
  return !OpenRs("SELECT COD FROM kt_ter WHERE COD = ?", {static_cast<qint64>(code.toLongLong())}).isEmpty();
}

bool isUnofferedRate(const DocumentKind& kind, const QString& key, const QString& code) {
  for (const HeaderField& field : kind.headerFields)
    if (field.key() == key && field.type == HeaderFieldType::VatRate) return !isOfferedRate(kind, code);
  return false;
}

Decimal totalOf(const std::vector<Row>& lines, const QString& column) {
  Decimal sum;
  for (const Row& line : lines) sum += line.decimal(column);
  return sum;
}

}  // namespace

DocumentKind kindOf(KindId id, const QString& name, const QString& window) {
  DocumentKind kind;
  kind.id = id;
  kind.prefix = ledgerKind(id).prefix;
  kind.name = name;
  kind.window = window;
  kind.texts.unsaved = kPressSave;
  return kind;
}

Check numberEmpty(const DocumentKind& kind, const QString& noun) {
  return isEmpty(kind.numberColumn,
                 QStringLiteral("Va rugam completati numarul %1 ! Salvarea nu se poate efectua !").arg(noun));
}

Check partnerEmpty(const QString& column, const QString& noun) {
  return {
      .text = QStringLiteral("Va rugam completati codul %1 ! Salvarea nu se poate efectua !").arg(noun),
      .field = column,
      .fault = [column](const Document& document) -> std::optional<Fault> {
        const QString code = document.typed().text(column);
        if (code.isEmpty()) return Fault{};
        if (partnerExists(code)) return std::nullopt;
        return Fault{.text = QStringLiteral("Tertul cu codul %1 nu exista ! Salvarea nu se poate efectua !")
                                 .arg(code.left(kShownCode))};
      }};
}

Check customerEmpty(const DocumentKind& kind) { return partnerEmpty(kind.partnerColumn, "clientului"); }

Check supplierEmpty(const DocumentKind& kind) { return partnerEmpty(kind.partnerColumn, "furnizorului"); }

Check journalEmpty() {
  // A blank is the company's own journal.
  return refusedWhen(kJournal, "JURNAL", [](const Document& document) {
    return document.typed().texts().value("JURNAL").isEmpty();
  });
}

Check fieldEmpty(const QString& column, const QString& text) {
  return refusedWhen(text, column, [column](const Document& document) {
    const QString typed = document.typed().text(column);
    return typed.isEmpty() || isUnofferedRate(*document.kind, column, typed);
  });
}

Check notNumeric(const QString& column, const QString& text) {
  return refusedWhen(text, column, [column](const Document& document) {
    const QString typed = document.typed().text(column);
    return !typedNumber(typed) || isUnofferedRate(*document.kind, column, typed);
  });
}

Check rateNotChosen(const QString& column) {
  return notNumeric(column, "Va rugam selectati o Cota TVA ! Salvarea nu se poate efectua !");
}

Check notPositive(const QString& column, const QString& text) {
  return refusedWhen(text, column, [column](const Document& document) {
    return !isPositive(document.typed().text(column));
  });
}

Check percentNotPositive(const QString& column) { return notPositive(column, kPercent); }

Check percentNotPositiveOrEmpty(const QString& column) {
  return refusedWhen(kPercent, column, [column](const Document& document) {
    const QString typed = document.typed().text(column);
    return !typed.isEmpty() && !isPositive(typed);
  });
}

Check numberTaken(const DocumentKind& kind) {
  const QString column = kind.numberColumn;
  return refusedWhen(kind.texts.numberTaken, column, [column](const Document& document) {
    if (!document.isNew) return false;
    const QString number = document.typed().text(column);
    const QString& existsKind = document.kind->existsKind;
    return existsKind.isEmpty() ? Drafts(*document.kind).load(number).has_value()
                                : Exista(number, existsKind);
  });
}

Check otherNumberTaken(const QString& column, const QString& existsKind, const QString& text) {
  return refusedWhen(text, column, [column, existsKind](const Document& document) {
    const QString number = document.typed().text(column);
    return document.isNew && !number.isEmpty() && Exista(number, existsKind);
  });
}

QString numberTakenText(const QString& noun) {
  return QStringLiteral("%1 cu acest numar exista deja ! Salvarea nu se poate efectua !").arg(noun);
}

Check nothingSelected(const DocumentKind& kind, const QString& text) {
  return isEmpty(kind.numberColumn, text);
}

Check dueBeforeDate() {
  return refusedWhen("Data scadenta este mai mica decat data facturarii !", "DATASCAD",
                     [](const Document& document) {
                       const TypedHeader typed = document.typed();
                       return QDate::fromString(typed.text("DATASCAD"), Qt::ISODate) < typed.date();
                     });
}

Check beforeFiscalYear(const DocumentKind& kind) {
  Check check =
      refusedWhen("Data documentului trebuie sa fie cuprinsa in exercitiul financiar!", kind.dateColumn,
                  [](const Document& document) { return document.typed().date() < session().DataIN; });
  check.at = CheckedAt::Twice;
  return check;
}

Check outsidePeriod(const DocumentKind& kind) {
  return {.text = {},
          .field = kind.dateColumn,
          .fault = [](const Document& document) -> std::optional<Fault> {
            if (InPerioadaCulegere(document.typed().date())) return std::nullopt;
            return Fault{.text = periodText()};
          },
          .at = CheckedAt::Twice};
}

Check currencyWithoutRate(const QString& column) {
  return refusedWhen("Pentru operatiuni in valuta, va rugam introduceti cursul. ", column,
                     [column](const Document& document) {
                       const TypedHeader typed = document.typed();
                       return typed.isForeign() && typed.number(column) <= 0;
                     });
}

Check journalNotChosen() { return journalEmpty(); }

Check withoutLines(const QString& text) {
  Check check = refusedWhen(
      text, "CODART", [](const Document& document) { return document.isNew || document.lines.empty(); });
  check.at = CheckedAt::Twice;
  return check;
}

Check noLines(const QString& noun) {
  return withoutLines(
      QStringLiteral("%1 nu contine nici un articol ! Nu se poate efectua validarea !").arg(noun));
}

Check totalDiffers(const QString& field, const QString& lineColumn, bool accepts0, const QString& text) {
  return refusedWhen(text, field, [field, lineColumn, accepts0](const Document& document) {
    const Decimal given = document.typed().number(field);
    return !(accepts0 && given.isZero()) &&
           Round(totalOf(document.lines, lineColumn), kTotalDecimals) != given;
  });
}

Check emptyWithTotal(const QString& field, const QString& lineColumn, const QString& text) {
  return refusedWhen(text, field, [field, lineColumn](const Document& document) {
    return document.typed().text(field).isEmpty() && totalOf(document.lines, lineColumn) > 0;
  });
}

Check printWithoutPartner(const DocumentKind& kind, const QString& text) {
  return isEmpty(kind.partnerColumn, text);
}

Check printUnsaved(const DocumentKind& kind) {
  return refusedWhen(kind.texts.unsaved, kind.numberColumn,
                     [](const Document& document) { return document.isNew; });
}

QList<HeaderField> currencyFields(const QString& currency, const QString& rate) {
  return {
      {HeaderFieldType::Foreign, "", "chkDeviza", "De&viza", "Bifati daca documentul este in valuta"},
      {HeaderFieldType::Currency, currency, "cboIDDeviza", "Cod valuta", "Selectati codul valutei din lista"},
      {HeaderFieldType::Rate, rate, "txtCurs", "Curs", "Curs valutar"}};
}

HeaderField companyJournal() {
  return {HeaderFieldType::Journal,       "JURNAL",    "TxtJNL", "&Jurnal",
          "Selectati jurnalul din lista", "cboJurnal", " "};
}

HeaderField postsNotes(const QString& toolTip) {
  return {HeaderFieldType::Flag, "NoteContabile", "chkNoteContabile", "Note Contabile", toolTip, "", "-1"};
}

HeaderField vatPercent(const QString& column, const QString& initial) {
  return {HeaderFieldType::Percent,
          column,
          "txtFields(2)",
          "Cota &TVA",
          "Selectati cota TVA in lista",
          "",
          initial,
          0,
          true};
}

HeaderField purchaseVatPercent(const QString& column) {
  HeaderField field = vatPercent(column, QStringLiteral("19"));
  field.decimals = 2;
  return field;
}

HeaderField vatRate(const QString& column, const QString& control) {
  HeaderField field{HeaderFieldType::VatRate,       column,  control, "Cota &TVA",
                    "Selectati cota TVA din lista", "cboTVA"};
  field.keeps = true;
  return field;
}

QList<LineColumn> leadingColumns(const DocumentKind& kind) {
  return {{kind.numberColumn, "Numar", LineEntry::Locked, -1, kAsTyped, 10, false},
          {"NRLINIE", "Nr.", LineEntry::Locked, -1, kAsTyped, 5},
          {"CODART", "Cod articol", LineEntry::Code, -1, kAsTyped, 18},
          {"DENUMIRE", "Denumire articol", LineEntry::Name, -1, kAsTyped, 44},
          {"UM", "UM", LineEntry::Locked, -1, kAsTyped, 6}};
}

LineColumn price(const QString& field, const QString& caption, LineEntry entry, int roundTo) {
  return {field, caption, entry, kSessionDecimals, roundTo, 12};
}

LineColumn value(const QString& field, const QString& caption) {
  return {field, caption, LineEntry::Locked, kSessionDecimals, kAsTyped, 14};
}

QString printedLines(const QString& table, const QString& number) {
  return QStringLiteral("SELECT * FROM %1 WHERE %2 = ? ORDER BY NRLINIE").arg(table, number);
}

QList<ListingBox> delegateBoxes() {
  return {{"txtNume", "txtNume", "Numele delegatului"},
          {"txtBI", "txtBI", "Act de identitate"},
          {"txtAE", "txtAE", "Aviz de expeditie nr."},
          {"txtAuto", "txtAuto", "Autovehicul de transport nr."},
          {kDispatchDate, kDispatchDate, "Data expedierii"},
          {"txtLivratDe", "txtLivratDe", "Livrat de"},
          {"txtBI1", "txtBI1", "B.I."},
          {"txtCNP", "txtCNP", "CNP"},
          {"txtObs", "TxtObs", " Observatii"}};
}

void setTips(KindTexts& texts, const QString& newTip, const QString& deleteTip, const QString& printTip) {
  texts.newTip = newTip;
  texts.saveTip = "Salvare informatii de antet si activare linii de detaliu";
  texts.validateTip =
      "Verificare informatii, salvare in tabela Documente, modificare stoc si generare formule contabile";
  texts.deleteTip = deleteTip;
  texts.printTip = printTip;
}

void setQuestions(KindTexts& texts, const QString& noun, const QString& nothingSelected) {
  texts.saveFirst = QStringLiteral("Va rugam salvati mai intai %1 !").arg(noun);
  texts.confirmValidation = QStringLiteral("Sunteti sigur ca doriti sa validati ") + noun + " %1 ?";
  texts.nothingToDelete = nothingSelected;
  texts.confirmDeletion = QStringLiteral("Sunteti sigur ca doriti sa stergeti ") + noun + " %1 ?";
}

}  // namespace velmar::wording
