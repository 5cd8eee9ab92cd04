// RASX files: archives as they come, and the profile and conditions inside a sound one, parted by a form feed.
#include <zip.h>

#include "support/FuzzedPattern.h"
#include "support/FuzzedSession.h"

namespace talven::fuzz {
namespace {

/// An archive with the two files, in memory; empty if the library does not make one.
std::string MakeArchive(std::string_view profile, std::string_view conditions) {
  zip_source_t* const target = zip_source_buffer_create(nullptr, 0, 0, nullptr);
  zip_source_keep(target);
  zip_t* const archive = zip_open_from_source(target, ZIP_TRUNCATE, nullptr);
  zip_file_add(archive, "Data0/Profile0.txt", zip_source_buffer(archive, profile.data(), profile.size(), 0), 0);
  zip_file_add(archive, "Data0/MesurementConditions0.xml",
               zip_source_buffer(archive, conditions.data(), conditions.size(), 0), 0);
  std::string bytes;
  zip_stat_t stat;
  if (zip_close(archive) == 0 && zip_source_open(target) == 0 && zip_source_stat(target, &stat) == 0) {
    bytes.resize(stat.size);
    zip_source_read(target, bytes.data(), bytes.size());
    zip_source_close(target);
  }
  zip_source_free(target);
  return bytes;
}

}  // namespace

void RunInput(std::string_view input) {
  if (input.starts_with("PK")) return ReadAnyPattern("ABC.rasx", input);
  const std::size_t end = input.find('\f');
  if (end == std::string_view::npos) return;
  ReadAnyPattern("ABC.rasx", MakeArchive(input.substr(0, end), input.substr(end + 1)));
}

}  // namespace talven::fuzz
