#include "shell/StructureUpgrade.h"

#include "config/Session.h"
#include "store/clsCompareBD.h"
#include "store/Database.h"
#include "store/DatabaseFiles.h"
#include "util/Errors.h"
#include "util/FileNames.h"
#include "util/Messages.h"

namespace velmar {

namespace {

// The template is the reference, so it must be of this program's version.
void compareWithTemplate(const ShowProgress& show) {
  Session& s = session();
  bringTemplateUpToDate(s.gCaleBD);
  clsCompareBD(pathInFolder(s.gCaleBD, s.gNumeBD), pathInFolder(s.gCaleBD, kTemplateName))
      .Compara(show ? show() : clsCompareBD::Progress());
  MarcheazaVersiune(s.gCaleBD, s.gNumeBD, s.gDenSocietateNoua);
}

}  // namespace

void VerificaVersiune(bool force, const ShowProgress& show) {
  if (!force && revisionOf(database()) == programRevision()) return;
  const QString question =
      QStringLiteral(
          "Structura bazei de date %1 trebuie actualizata !\r\n Doriti sa efectuati actualizarea acum ?")
          .arg(session().gNumeBD);
  if (Mesaj(question, kQuestion + kYesNo, QStringLiteral("Actualizare baza de date")) == kResultYes)
    ActualizeazaStructura(show);
}

void ActualizeazaStructura(const ShowProgress& show) {
  try {
    compareWithTemplate(show);
  } catch (const Error& error) {
    Mesaj(QStringLiteral("Eroare in actualizarea bazei de date !\r\n%1 - %2")
              .arg(QString::number(error.number()), error.text()));
    return;
  } catch (const Cancelled&) {
    return;
  }
  Mesaj(QStringLiteral("Actualizarea bazei de date s-a incheiat !"), kInformation);
}

}  // namespace velmar
