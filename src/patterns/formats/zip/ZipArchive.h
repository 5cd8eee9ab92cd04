// Zip archives from anywhere, in memory: entries come out by name, none is ever written to a disk.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct zip;

namespace talven {

class ZipArchive {
 public:
  /// The bytes have to last as long as the archive. Throws FatalIoError for what is no whole zip file, and for one with
  /// a name that leads out of it (absolute, or with "..").
  ZipArchive(std::string file, std::string_view bytes);

  const std::vector<std::string>& Names() const { return names_; }
  /// The content of an entry; nothing if there is none of the name. Throws FatalIoError for one that cannot be unpacked
  /// and for one that would become larger than 16 MB and 20 times the archive, or than 512 MB.
  std::optional<std::string> Read(std::string_view name) const;
  /// The same for an entry that has to be there.
  std::string Require(std::string_view name) const;
  /// How messages name an entry: `FILE.rasx (Data0/Profile0.txt)`.
  std::string NameOf(std::string_view entry) const;

 private:
  void ReadNames();
  struct Closer {
    void operator()(zip* archive) const;
  };
  std::string file_;
  std::size_t size_ = 0;
  std::unique_ptr<zip, Closer> archive_;
  std::vector<std::string> names_;
};

}  // namespace talven
