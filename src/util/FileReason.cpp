#include "util/FileReason.h"

#include <QFileDevice>
#include <utility>

namespace velmar {

QString fileReason(const QFileDevice& file) {
  constexpr std::pair<const char*, const char*> kReasons[] = {
      {"No such file", "fisierul sau folderul nu exista"},
      {"does not exist", "fisierul sau folderul nu exista"},
      {"not found", "fisierul sau folderul nu exista"},
      {"cannot find", "fisierul sau folderul nu exista"},
      {"Permission denied", "accesul este interzis"},
      {"Access is denied", "accesul este interzis"},
      {"not permitted", "accesul este interzis"},
      {"s a directory", "la acest loc este un folder"},
      {"Not a directory", "folderul nu exista"},
      {"No space left", "discul este plin"},
      {"Disk quota", "discul este plin"},
      {"Read-only", "discul nu poate fi scris"},
      {"name too long", "numele este prea lung"},
      {"busy", "fisierul este folosit de alt program"},
      {"being used by", "fisierul este folosit de alt program"},
      {"Input/output", "discul nu raspunde"}};
  for (const auto& [english, reason] : kReasons)
    if (file.errorString().contains(QLatin1String(english), Qt::CaseInsensitive))
      return QString::fromLatin1(reason);
  return QStringLiteral("sistemul a refuzat operatia");
}

}  // namespace velmar
