#include "util/Errors.h"

#include <QDir>
#include <QFileDevice>

#include "util/FileReason.h"
#include "util/Messages.h"

namespace velmar {

Error::Error(int number, const QString& text)
    : std::runtime_error(text.toStdString()), number_(number), text_(text) {}

StoreError notWritten(const QFileDevice& file) {
  return StoreError(kFileFailure, QStringLiteral("Fisierul %1 nu poate fi scris: %2")
                                      .arg(QDir::toNativeSeparators(file.fileName()), fileReason(file)));
}

RuleError::RuleError(const QString& text, const QString& field, int icon, const QString& title)
    : Error(0, text), field_(field), icon_(icon), title_(title) {}

void reportError(int number, const QString& text, const QString& procedure, const QString& form, int line) {
  const QString place = form.contains(QLatin1Char(' ')) ? form : QStringLiteral("Form ") + form;
  Mesaj(QStringLiteral("Eroare %1 - %2 in procedura %3 din %4 Linia: %5")
            .arg(QString::number(number), text, procedure, place, QString::number(line)));
}

void detail::reportCurrentException(const QString& form, const QString& procedure, int line) {
  try {
    throw;
  } catch (const Cancelled&) {
    // The user has cancelled; nothing to report.
  } catch (const RuleError& rule) {
    Mesaj(rule.text(), rule.icon(), rule.title());
  } catch (const Error& error) {
    reportError(error.number(), error.text(), procedure, form, line);
  } catch (const std::exception& error) {
    qCritical("%s", error.what());  // in English, for who looks after the program
    reportError(0, QStringLiteral("eroare interna a programului"), procedure, form, line);
  }
}

}  // namespace velmar
