// Zip archives in memory for tests.
#pragma once

#include <zip.h>
#include <QByteArray>
#include <vector>

namespace velmar {

inline QByteArray zipped(const std::vector<std::pair<const char*, QByteArray>>& files,
                         bool isEncrypted = false) {
  zip_error_t error;
  zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, &error);
  zip_source_keep(target);
  zip_t* archive = zip_open_from_source(target, ZIP_CREATE | ZIP_TRUNCATE, &error);
  for (const auto& [name, content] : files) {
    const zip_int64_t index = zip_file_add(
        archive, name,
        zip_source_buffer(archive, content.constData(), static_cast<zip_uint64_t>(content.size()), 0), 0);
    if (isEncrypted) zip_file_set_encryption(archive, static_cast<zip_uint64_t>(index), ZIP_EM_AES_256, "x");
  }
  zip_close(archive);
  zip_source_open(target);
  QByteArray bytes(1 << 20, Qt::Uninitialized);
  bytes.resize(
      static_cast<qsizetype>(zip_source_read(target, bytes.data(), static_cast<zip_uint64_t>(bytes.size()))));
  zip_source_close(target);
  zip_source_free(target);
  return bytes;
}

}  // namespace velmar
