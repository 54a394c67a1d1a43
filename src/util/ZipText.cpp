#include "util/ZipText.h"

#include <zip.h>
#include <memory>

#include "util/Errors.h"
#include "util/FileContent.h"

namespace velmar {

namespace {

constexpr zip_int64_t kMostEntries = 1000;

struct CloseArchive {
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct CloseFile {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};

RuleError damaged() { return RuleError(QStringLiteral("Arhiva zip este deteriorata.")); }
RuleError tooLarge() {
  return RuleError(
      QStringLiteral("Arhiva zip este prea mare (peste 50 MB, 1.000 de fisiere sau 20 MB un fisier)."));
}

// The stated size is not trusted: reading stops at the limit.
QByteArray content(zip_t* archive, zip_uint64_t index, qint64 most) {
  const std::unique_ptr<zip_file_t, CloseFile> file(zip_fopen_index(archive, index, 0));
  if (!file) throw damaged();
  QByteArray bytes;
  QByteArray part(static_cast<qsizetype>(64 * 1024), Qt::Uninitialized);
  while (true) {
    const zip_int64_t count = zip_fread(file.get(), part.data(), static_cast<zip_uint64_t>(part.size()));
    if (count < 0) throw damaged();
    if (count == 0) return bytes;
    bytes.append(part.constData(), static_cast<qsizetype>(count));
    if (bytes.size() > most) throw tooLarge();
  }
}

}  // namespace

bool isZip(const QByteArray& bytes) {
  return bytes.startsWith("PK\x03\x04") || bytes.startsWith("PK\x05\x06");
}

std::vector<ZipEntry> unzipped(const QByteArray& bytes) {
  if (bytes.size() > kLargestArchive) throw tooLarge();
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* source =
      zip_source_buffer_create(bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0, &error);
  if (!source) throw damaged();
  const std::unique_ptr<zip_t, CloseArchive> archive(
      zip_open_from_source(source, ZIP_RDONLY | ZIP_CHECKCONS, &error));
  if (!archive) {
    zip_source_free(source);
    throw damaged();
  }
  const zip_int64_t count = zip_get_num_entries(archive.get(), 0);
  if (count > kMostEntries) throw tooLarge();
  std::vector<ZipEntry> entries;
  qint64 total = 0;
  for (zip_uint64_t index = 0; index < static_cast<zip_uint64_t>(count); ++index) {
    zip_stat_t stat;
    if (zip_stat_index(archive.get(), index, 0, &stat) != 0 || !(stat.valid & ZIP_STAT_NAME)) throw damaged();
    if ((stat.valid & ZIP_STAT_ENCRYPTION_METHOD) && stat.encryption_method != ZIP_EM_NONE)
      throw RuleError(QStringLiteral("Arhiva zip este criptata."));
    const QString name = QString::fromUtf8(stat.name).replace(u'\\', u'/');
    if (name.endsWith(u'/')) continue;
    ZipEntry entry{name.section(u'/', -1),
                   content(archive.get(), index, std::min(kLargestXml, kLargestArchive - total))};
    total += entry.content.size();
    entries.push_back(std::move(entry));
  }
  return entries;
}

}  // namespace velmar
