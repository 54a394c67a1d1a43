#include "util/windows/ToolkitTexts.h"

#include <cstring>
#include <QHash>

namespace velmar {

namespace {

const QHash<QByteArray, const char*>& texts() {
  static const QHash<QByteArray, const char*> theTexts = {
      // The menu of a text box and of a spin box.
      {"&Undo", "&Anuleaza modificarea"},
      {"&Redo", "&Refa modificarea"},
      {"Cu&t", "&Decupeaza"},
      {"&Copy", "&Copiaza"},
      {"&Paste", "&Lipeste"},
      {"Delete", "Sterge"},
      {"Select All", "Selecteaza tot"},
      {"&Select All", "&Selecteaza tot"},
      {"&Step up", "&Mareste"},
      {"Step &down", "M&icsoreaza"},
      // The buttons of a standard dialog.
      {"OK", "OK"},
      {"Save", "Salvare"},
      {"Open", "Deschidere"},
      {"&Yes", "&Da"},
      {"&No", "&Nu"},
      {"Abort", "Abandon"},
      {"Retry", "Reincearca"},
      {"Ignore", "Ignora"},
      {"Close", "Inchidere"},
      {"Cancel", "Anulare"},
      {"Apply", "Aplicare"},
      {"Help", "Ajutor"},
      // The file dialog.
      {"Look in:", "Folder:"},
      {"Directory:", "Folder:"},
      {"File &name:", "&Nume fisier:"},
      {"Files of type:", "Tip fisier:"},
      {"&Open", "&Deschidere"},
      {"&Save", "&Salvare"},
      {"&Choose", "&Alegere"},
      {"Save As", "Salvare ca"},
      {"Find Directory", "Alegere folder"},
      {"All Files (*)", "Toate fisierele (*)"},
      {"Back", "Inapoi"},
      {"Forward", "Inainte"},
      {"Go back", "Inapoi"},
      {"Go forward", "Inainte"},
      {"Parent Directory", "Folderul de deasupra"},
      {"Go to the parent directory", "Folderul de deasupra"},
      {"Create New Folder", "Folder nou"},
      {"Create a New Folder", "Folder nou"},
      {"&New Folder", "Folder &nou"},
      {"New Folder", "Folder nou"},
      {"List View", "Lista"},
      {"Change to list view mode", "Afisare ca lista"},
      {"Detail View", "Detalii"},
      {"Change to detail view mode", "Afisare cu detalii"},
      {"Show &hidden files", "&Arata fisierele ascunse"},
      {"&Rename", "&Redenumire"},
      {"&Delete", "&Stergere"},
      {"Remove", "Elimina"},
      {"Recent Places", "Locuri recente"},
      {"Name", "Nume"},
      {"Size", "Marime"},
      {"Type", "Tip"},
      {"Kind", "Tip"},
      {"Date Modified", "Data modificarii"},
      {"Computer", "Calculator"},
      {"My Computer", "Calculator"},
      {"Folder", "Folder"},
      {"File", "Fisier"},
      {"%1 File", "Fisier %1"},
      {"Drive", "Disc"},
      {"%1\nFile not found.\nPlease verify the correct file name was given.",
       "%1\nFisierul nu exista. Verificati numele fisierului."},
      {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
       "%1\nFolderul nu exista. Verificati numele folderului."},
      {"%1 already exists.\nDo you want to replace it?", "%1 exista deja.\nDoriti sa il inlocuiti ?"},
      {"Are you sure you want to delete '%1'?", "Sunteti sigur ca doriti sa stergeti '%1' ?"},
      // The menu and the buttons of a child window.
      {"&Restore", "&Restaurare"},
      {"&Move", "&Mutare"},
      {"&Size", "&Dimensiune"},
      {"Mi&nimize", "Mi&nimizare"},
      {"Ma&ximize", "Ma&ximizare"},
      {"Stay on &Top", "&Mereu deasupra"},
      {"&Close", "&Inchidere"},
      {"Minimize", "Minimizare"},
      {"Maximize", "Maximizare"},
      {"Restore Down", "Restaurare"},
      {"Restore", "Restaurare"},
      {"Menu", "Meniu"},
  };
  return theTexts;
}

}  // namespace

QString ToolkitTexts::translate(const char* context, const char* sourceText, const char*, int) const {
  // Names of keys are also parsed, and are as on the keyboard.
  if (!sourceText || (context && std::strcmp(context, "QShortcut") == 0)) return {};
  const auto found = texts().constFind(sourceText);
  return found == texts().cend() ? QString() : QString::fromLatin1(*found);
}

}  // namespace velmar
