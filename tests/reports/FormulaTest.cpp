// Formulas as users write them in layouts, and invalid or harmful formulas.
#include "reports/Formula.h"

#include <gtest/gtest.h>

#include "config/Session.h"
#include "Printers.h"
#include "reports/Shown.h"

namespace velmar::layout {
namespace {

const QHash<QString, QVariant> kValues = {{"cant", 2.5},
                                          {"pret", 1.07},
                                          {"denumire", "Surub M6"},
                                          {"um", QVariant()},
                                          {"zero", 0},
                                          {"bdeviza", true},
                                          {"datafac", "2026-11-25 00:00:00.000"},
                                          {"scadenta", QDate(2026, 12, 5)},
                                          {"total", QVariant::fromValue(1234.5_dec)}};

QVariant valueOf(const QString& text) {
  EXPECT_FALSE(faultOf(text)) << qUtf8Printable(text) << ": " << qUtf8Printable(faultOf(text)->text);
  Formulas formulas;
  const int formula = formulas.add(text);
  QVariantList values;
  for (const QString& name : formulas.names(formula)) values.append(kValues.value(name.toLower()));
  return formulas.value(formula, values);
}

QString shown(const QString& text) { return textOf(valueOf(text)); }

TEST(Formula, ComputesChoosesAndJoins) {
  EXPECT_EQ(shown("Cant * PRET"), "2,675");  // and not 2,6750000000000003
  EXPECT_EQ(shown("0.1 + 0.2"), "0,3");
  EXPECT_EQ(shown("Math.round(cant * pret * 100) / 100"), "2,68");
  EXPECT_EQ(shown("rotunjit(cant * pret, 2) + '/' + rotunjit(2.5 * 0.05) + '/' + rotunjit(0.375, 2)"),
            "2.68/0.12/0.38");  // half to even, also where a double is just below the tie
  EXPECT_EQ(shown("rotunjit(denumire) + rotunjit(um)"), "Surub M6");
  EXPECT_EQ(shown("(2 + 3) * 4 % 7"), "6");
  EXPECT_EQ(shown("Denumire + ' ' + UM + \"!\""), "Surub M6 !");
  EXPECT_EQ(shown("Total"), "1234,5");
  EXPECT_EQ(shown("NuExista"), "");
  EXPECT_EQ(shown("NuExista * 2"), "0");
  EXPECT_EQ(shown("1 / zero"), "");
  EXPECT_EQ(shown("denumire * 2"), "");
  EXPECT_EQ(shown("Denumire.substring(0, 5).toUpperCase() + denumire.length"), "SURUB8");
  EXPECT_EQ(shown("bDeviza ? 'EUR' : 'LEI'"), "EUR");
  EXPECT_EQ(shown("cant > 3 ? 'mult' : cant > 2 ? 'mediu' : 'putin'"), "mediu");
  EXPECT_EQ(shown("um || 'buc'"), "buc");
  EXPECT_TRUE(isTrue(valueOf("!zero && !um && cant >= 2.5 && Denumire == 'Surub M6'")));
  EXPECT_FALSE(isTrue(valueOf("zero")));
}

TEST(Formula, DatesAndNumbersBecomeTexts) {
  EXPECT_EQ(shown("data(DataFac, 'd MMMM yyyy')"), "25 noiembrie 2026");
  EXPECT_EQ(shown("data(Scadenta) + '/' + data(um) + '/' + data(denumire)"), "05.12.2026//Surub M6");
  EXPECT_EQ(shown("Scadenta"), "05.12.2026");
  EXPECT_EQ(shown("numar(total, 2) + '/' + numar(um, 2) + '/' + numar('x')"), "1.234,50//x");
  TextStyle style;
  style.format = Format::Number;
  EXPECT_EQ(shownText(1234567.125, style), "1.234.567,12");  // ties to even
  EXPECT_EQ(shownText(QVariant(), style), "");
  EXPECT_EQ(shownText("fara numar", style), "fara numar");
  style.format = Format::Price;
  session().NrZec = 4;
  EXPECT_EQ(shownText(1.23456, style), "1,2346");
  session().NrZec = 2;
  style.format = Format::Number;
  EXPECT_EQ(shownText(0.004, style), "0,00");
  style.hidesZero = true;
  EXPECT_EQ(shownText(-0.004, style), "");
  style.format = Format::Date;
  EXPECT_EQ(shownText("2026-11-25", style), "25.11.2026");
  EXPECT_EQ(shownText("maine", style), "maine");
}

TEST(Formula, ReturnsItsNamesAndThePositionOfAFault) {
  EXPECT_EQ(namesIn("Cant*PRET + Cant + data(DATAFAC, 'Azi') + Math.round(x)"),
            QStringList({"Cant", "PRET", "DATAFAC", "x"}));
  const auto column = [](const QString& text) { return faultOf(text) ? faultOf(text)->column : 0; };
  EXPECT_EQ(column(""), 0);
  EXPECT_EQ(column("  "), 0);
  EXPECT_EQ(column("a + 'abc"), 5);
  EXPECT_EQ(column("(a + b"), 1);
  EXPECT_EQ(column("a + b)"), 6);
  EXPECT_EQ(column("a b"), 3);
  EXPECT_EQ(column("a + nimic(1)"), 5);
  EXPECT_EQ(column("a = 1"), 3);
}

// Each of these would not terminate, use all memory or leave the formula.
TEST(Formula, IsAnExpressionOfKnownFunctionsOnly) {
  for (const char* text : {"while(true){}",
                           "for(;;);",
                           "a = 1",
                           "function(){}",
                           "x => x",
                           "`a`",
                           "a;b",
                           "{}",
                           "a++",
                           "new Date()",
                           "'x'.repeat(1e9)",
                           "'x'['rep' + 'eat'](1e9)",
                           "Array(1e9).join('x')",
                           "eval('1')",
                           "''['sub']['constr' + 'uctor']('for(;;);')()",
                           "''.sub.constructor('for(;;);')()",
                           "parseInt.call(a)",
                           "gc()",
                           "Math.constructor('for(;;);')",
                           "'a'.replaceAll('a', b)",
                           "/a+/.test(b)",
                           "[1, 2]",
                           "a\\u0062",
                           "'\\u0061' + b)(",
                           "(a)('x')",
                           "a.b('x')",
                           "this",
                           "a, b",
                           "...a",
                           "a?.b",
                           "'a'.at.call(b)"})
    EXPECT_TRUE(faultOf(text)) << text;
}

TEST(Formula, HugeOnesAreComputedOrRefused) {
  for (const QString& text :
       {QString(15000, '(') + "1", QString(5000, '(') + "1" + QString(5000, ')'), QString(15000, '!') + "1",
        "0" + QString("+1").repeated(9000), "a" + QString("?a").repeated(5000),
        QString("a?").repeated(3000) + "1" + QString(":1").repeated(3000)}) {
    Formulas formulas;
    const int formula = formulas.add(text);
    QVariantList values;
    for (qsizetype i = 0; i < formulas.names(formula).size(); ++i) values.append(1);
    formulas.value(formula, values);
    faultOf(text);
  }
}

TEST(Formula, ResultsAndWorkAreLimited) {
  EXPECT_EQ(shown("denumire.replace('M6', \"$'$`$&$$\")"), "Surub $'$`$&$$");
  QString multiplied = "denumire";
  for (int i = 0; i < 20; ++i) multiplied = "(" + multiplied + ").replace('', \"$'$'$'\")";
  EXPECT_EQ(shown(multiplied).size(), 8 + 20 * 6);
  Formulas formulas;
  const int formula = formulas.add("a + a");
  EXPECT_TRUE(formulas.value(formula, {QString(5000, 'x')}).isValid());
  EXPECT_FALSE(formulas.value(formula, {QString(5001, 'x')}).isValid());
  // Long work on long texts fails at once; a few searches in a long text are computed.
  const int wide = formulas.add("(a" + QString(" + a").repeated(1500) + ")" +
                                QString(".toUpperCase()").repeated(200) + ".length");
  EXPECT_TRUE(formulas.value(wide, {"abcde"}).isValid());
  EXPECT_FALSE(formulas.value(wide, {QString(10000, 'x')}).isValid());
  const int searches = formulas.add("0" + QString(" + a.indexOf(b)").repeated(100));
  EXPECT_EQ(formulas.value(searches, {"xy", "y"}), 100);
  EXPECT_FALSE(formulas.value(searches, {QString(10000, 'x'), QString(5000, 'x') + 'y'}).isValid());
  const int few = formulas.add("a.indexOf(b)");
  EXPECT_EQ(formulas.value(few, {QString(10000, 'x'), QString(5000, 'x') + 'y'}), -1);
}

}  // namespace
}  // namespace velmar::layout
