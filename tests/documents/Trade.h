// A trading company for tests of whole documents: partners, families, articles, and documents from header to
// validation in one call.
#pragma once

#include "catalogue/Articles.h"
#include "catalogue/Families.h"
#include "catalogue/Partners.h"
#include "documents/DocumentEditor.h"
#include "documents/Invariants.h"
#include "documents/LineSource.h"
#include "TestCompany.h"
#include "util/Errors.h"

namespace velmar {

/// A typed line: the article's code, then the cells in order.
struct TypedLine {
  QString code;
  std::vector<std::pair<QString, QString>> cells;
};

using TypedTexts = QHash<QString, QString>;

class Trade {
 public:
  explicit Trade(const QString& method) {
    ExecutaSql("UPDATE kt_info SET TCOST = ?", {method});
    InitParaSoc();
    supplier = addPartner(newPartner("FURNIZOR SRL", "F"));
    customer = addPartner(newPartner("CLIENT SRL", "C"));
    addPartner(newPartner("CASA", "C"));
    goods = addFamily(newFamily("Marfuri", "371", "607", "707", "345"));
    products = addFamily(newFamily("Produse", "371", "607", "701", "345"));
  }

  void article(const QString& code, const QString& salePrice = "0", bool isGoods = true,
               bool isHeld = true) const {
    Row row = newArticle();
    row.set("CODART", code);
    row.set("DENART", "Articolul " + code);
    row.set("FAMART", isGoods ? goods : products);
    row.set("CODFURNIZO", supplier);
    row.set("PROVENIENTA", isGoods ? "M" : "P");
    row.set("FARASTOC", !isHeld);
    addArticle(row);
    ExecutaSql("UPDATE G_ARTMAG SET PRETVFT = ? WHERE CODART = ?", {*Decimal::parse(salePrice), code});
  }

  /// A draft with those lines in the editor; `more` overrides the header's defaults.
  static void draft(DocumentEditor& editor, const TypedTexts& more, const std::vector<TypedLine>& lines) {
    editor.newDocument();
    TypedTexts header = editor.headerTexts();
    for (auto it = more.cbegin(); it != more.cend(); ++it) header.insert(it.key(), it.value());
    editor.save(header);
    for (const TypedLine& line : lines) {
      const size_t at = editor.setArticle(editor.lines().size(), line.code);
      for (const auto& [column, typed] : line.cells) {
        const auto verdict = editor.check(at, column, typed, false);
        if (verdict.refused) throw RuleError(verdict.text);
        editor.setNumber(at, column, typed);
      }
    }
  }

  static bool validate(DocumentEditor& editor) {
    editor.checkValidation(editor.headerTexts());
    if (!editor.checkLines()) return false;
    editor.validate(editor.headerTexts());
    return true;
  }

  /// Validates the storno of an invoice, with that number.
  static bool turnRound(const QString& invoice, const QString& number) {
    DocumentEditor editor("FS");
    editor.open(invoice);
    TypedTexts header = editor.headerTexts();
    header.insert("NUMFAC", number);
    editor.headerTyped(header);
    return validate(editor);
  }

  void validated(const QString& kind, const TypedTexts& more, const std::vector<TypedLine>& lines) const {
    DocumentEditor editor(kind);
    draft(editor, more, lines);
    ASSERT_TRUE(validate(editor));
  }

  static QString iso(const QDate& date) { return date.toString(Qt::ISODate); }

  TypedTexts purchase(const QString& number, const QDate& date = clock::today(),
                      const QString& remark = {}) const {
    return {
        {"NUMFAC", number}, {"CODFUR", QString::number(supplier)}, {"DATAFAC", iso(date)}, {"OBS", remark}};
  }
  TypedTexts sale(const QString& number, const QString& remark = {}) const {
    return {{"NUMFAC", number}, {"CODCLI", QString::number(customer)}, {"BATVA1", "2"}, {"OBS", remark}};
  }
  TypedTexts consumption(const QString& number) const {
    return {{"NUMAE", number}, {"CODCLI", QString::number(customer)}, {"BATVA1", "19"}};
  }

  /// An import in euro at 4,5 lei; the transport, in euro, is typed in the lines too.
  TypedTexts import(const QString& number, const QDate& date, const QString& transport = "0") const {
    const QString code = QString::number(supplier);
    return {{"NUMFAC", number},      {"DATAFAC", iso(date)},     {"CODFUR", code},
            {"CODFURTR", code},      {"CODVALUTA", "EUR"},       {"CURSVALUTA", "4.5"},
            {"TRANSTTI", transport}, {"NUMFACTR", "T" + number}, {"NUMEFURTR", "CARAUS"}};
  }

  /// Validates a document whose lines come from another one.
  static void sourced(const QString& kind, const TypedTexts& more, KindId source, const QString& number) {
    DocumentEditor editor(kind);
    draft(editor, more, {});
    for (const LineSource* offered : editor.kind().sources)
      if (offered->kind() == source) editor.addLines(*offered, number, editor.headerTexts());
    ASSERT_TRUE(validate(editor));
  }

  static TypedLine bought(const QString& code, const QString& quantity, const QString& price,
                          const QString& salePrice) {
    return {code, {{"CANT", quantity}, {"PRETFT", price}, {"PRETVA", salePrice}}};
  }
  static TypedLine out(const QString& code, const QString& quantity) { return {code, {{"CANT", quantity}}}; }

  static Decimal figure(const QString& code, const QString& column) {
    return articleByCode(code)->decimal(column);
  }
  static Decimal rest(const QString& document) {
    return OpenRs("SELECT CANTRAMASA FROM G_LDOCUM WHERE DOCID = ?", {document})
        .first()
        .decimal("CANTRAMASA");
  }

  /// The rows of a document's note, as "NDI side account amount", in order.
  static QStringList note(const QString& number) {
    QStringList rows;
    for (const Row& row : OpenRs("SELECT * FROM kt_linii WHERE DOC = ? ORDER BY NDI, NRLINIE", {number})) {
      const bool isDebit = !row.decimal("DEBIT").isZero();
      rows.append(QStringLiteral("%1 %2 %3 %4")
                      .arg(QString::number(row.integer("NDI")), isDebit ? "D" : "C", row.text("CONT"),
                           row.decimal(isDebit ? "DEBIT" : "CREDIT").toString()));
    }
    return rows;
  }

  TestCompany company;
  MessageRecorder messages;
  qint64 supplier = 0;
  qint64 customer = 0;
  qint64 goods = 0;
  qint64 products = 0;
};

}  // namespace velmar
