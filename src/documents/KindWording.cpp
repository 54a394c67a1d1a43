#include "documents/KindWording.h"

namespace velmar::wording {

namespace {

const QString kJournal = QStringLiteral("Va rugam selectati jurnalul ! Salvarea nu se poate efectua !");

}  // namespace

Checked<HeaderCheck> numberEmpty(const DocumentKind& kind, const QString& noun) {
  return {HeaderCheck::NumberEmpty,
          QStringLiteral("Va rugam completati numarul %1 ! Salvarea nu se poate efectua !").arg(noun),
          kind.numberColumn};
}

Checked<HeaderCheck> customerEmpty(const DocumentKind& kind) {
  return {HeaderCheck::PartnerEmpty, "Va rugam completati codul clientului ! Salvarea nu se poate efectua !",
          kind.partnerColumn};
}

Checked<HeaderCheck> supplierEmpty(const DocumentKind& kind) {
  return {HeaderCheck::PartnerEmpty,
          "Va rugam completati codul furnizorului ! Salvarea nu se poate efectua !", kind.partnerColumn};
}

Checked<HeaderCheck> journalEmpty() { return {HeaderCheck::JournalEmpty, kJournal, "JURNAL"}; }

Checked<HeaderCheck> rateNotChosen(const QString& column) {
  return {HeaderCheck::NotNumeric, "Va rugam selectati o Cota TVA ! Salvarea nu se poate efectua !", column};
}

Checked<HeaderCheck> percentNotPositive(const QString& column, HeaderCheck check) {
  return {check,
          "Va rugam introduceti o valoare numerica pozitiva pentru Cota TVA ! Salvarea nu se poate efectua !",
          column};
}

Checked<HeaderCheck> numberTaken(const DocumentKind& kind, const QString& noun) {
  return {HeaderCheck::NumberTaken,
          QStringLiteral("%1 cu acest numar exista deja ! Salvarea nu se poate efectua !").arg(noun),
          kind.numberColumn};
}

Checked<ValidationCheck> nothingSelected(const DocumentKind& kind, const QString& text) {
  return {ValidationCheck::NumberEmpty, text, kind.numberColumn};
}

Checked<ValidationCheck> dueBeforeDate() {
  return {ValidationCheck::DueBeforeDate, "Data scadenta este mai mica decat data facturarii !", "DATASCAD"};
}

Checked<ValidationCheck> beforeFiscalYear(const DocumentKind& kind) {
  return {ValidationCheck::BeforeFiscalYear,
          "Data documentului trebuie sa fie cuprinsa in exercitiul financiar!", kind.dateColumn};
}

Checked<ValidationCheck> currencyWithoutRate(const QString& column) {
  return {ValidationCheck::CurrencyWithoutRate, "Pentru operatiuni in valuta, va rugam introduceti cursul. ",
          column};
}

Checked<ValidationCheck> journalNotChosen() { return {ValidationCheck::JournalEmpty, kJournal, "JURNAL"}; }

Checked<ValidationCheck> noLines(const QString& noun) {
  return {ValidationCheck::NoLines,
          QStringLiteral("%1 nu contine nici un articol ! Nu se poate efectua validarea !").arg(noun),
          "CODART"};
}

Checked<PrintCheck> printWithoutNumber(const DocumentKind& kind, const QString& text) {
  return {PrintCheck::NumberEmpty, text, kind.numberColumn};
}

Checked<PrintCheck> printWithoutPartner(const DocumentKind& kind, const QString& text) {
  return {PrintCheck::PartnerEmpty, text, kind.partnerColumn};
}

Checked<PrintCheck> printUnsaved(const DocumentKind& kind, const QString& text) {
  return {PrintCheck::NotSaved, text, kind.numberColumn};
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
