#include "patterns/formats/zip/ZipArchive.h"

#include <zip.h>

#include <algorithm>
#include <ranges>

#include "patterns/formats/FormatText.h"

namespace talven {
namespace {

constexpr std::uint64_t kSmallEntry = 16'000'000;
constexpr std::uint64_t kLargestEntry = 512'000'000;
constexpr std::uint64_t kLargestGrowth = 20;
constexpr std::size_t kMostEntries = 100'000;

/// True for a name that means a place outside of the archive.
bool LeadsOut(std::string_view name) {
  if (name.starts_with('/') || name.find(':') != std::string_view::npos) return true;
  while (!name.empty()) {
    const std::size_t end = std::min(name.find_first_of("/\\"), name.size());
    if (name.substr(0, end) == "..") return true;
    name.remove_prefix(std::min(end + 1, name.size()));
  }
  return false;
}

std::string ErrorText(int code) {
  zip_error_t error;
  zip_error_init_with_code(&error, code);
  std::string text = zip_error_strerror(&error);
  zip_error_fini(&error);
  return text;
}

struct EntryCloser {
  void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};

}  // namespace

void ZipArchive::Closer::operator()(zip* archive) const {
  zip_discard(archive);
}

ZipArchive::ZipArchive(std::string file, std::string_view bytes) : file_(std::move(file)), size_(bytes.size()) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
  if (source != nullptr) archive_.reset(zip_open_from_source(source, ZIP_RDONLY, &error));
  const std::string text = archive_ ? "" : zip_error_strerror(&error);
  zip_error_fini(&error);
  if (!archive_ && source != nullptr) zip_source_free(source);
  if (!archive_) FailInFile(file_, "a whole zip archive", "none (" + text + ")");
  ReadNames();
}

void ZipArchive::ReadNames() {
  const auto count = static_cast<std::size_t>(std::max<zip_int64_t>(zip_get_num_entries(archive_.get(), 0), 0));
  if (count > kMostEntries)
    FailInFile(file_, "an archive of at most " + std::to_string(kMostEntries) + " entries", std::to_string(count));
  for (std::size_t i = 0; i < count; ++i) {
    const char* const name = zip_get_name(archive_.get(), i, 0);
    names_.emplace_back(name == nullptr ? "" : name);
    if (LeadsOut(names_.back()))
      FailInFile(file_, "names of entries that stay inside the archive", Quote(names_.back()));
  }
}

std::string ZipArchive::NameOf(std::string_view entry) const {
  return file_ + " (" + std::string(entry) + ')';
}

std::optional<std::string> ZipArchive::Read(std::string_view name) const {
  const auto found = std::ranges::find(names_, name);
  if (found == names_.end()) return std::nullopt;
  const auto index = static_cast<zip_uint64_t>(found - names_.begin());
  zip_stat_t stat;
  if (zip_stat_index(archive_.get(), index, 0, &stat) != 0 || (stat.valid & ZIP_STAT_SIZE) == 0)
    FailInFile(NameOf(name), "an entry of known size", "none");
  const std::uint64_t limit = std::min(kLargestEntry, std::max(kSmallEntry, kLargestGrowth * size_));
  if (stat.size > limit)
    FailInFile(NameOf(name), "an entry of at most " + std::to_string(limit) + " bytes", std::to_string(stat.size));
  const std::unique_ptr<zip_file_t, EntryCloser> entry(zip_fopen_index(archive_.get(), index, 0));
  if (!entry)
    FailInFile(NameOf(name), "an entry that can be unpacked",
               ErrorText(zip_error_code_zip(zip_get_error(archive_.get()))));
  std::string content(stat.size, '\0');
  const zip_int64_t length = zip_fread(entry.get(), content.data(), content.size());
  // One more read meets the end of the entry, where its checksum is looked at.
  char more = 0;
  if (length != static_cast<zip_int64_t>(stat.size) || zip_fread(entry.get(), &more, 1) != 0)
    FailInFile(NameOf(name), std::to_string(stat.size) + " sound bytes", "fewer, or another checksum");
  return content;
}

std::string ZipArchive::Require(std::string_view name) const {
  auto content = Read(name);
  if (!content) FailInFile(file_, "an entry " + std::string(name), "none");
  return *std::move(content);
}

}  // namespace talven
