// The one way in which files are written: buffered, with LF line ends, every write checked.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "textio/Folder.h"
#include "textio/TextOutput.h"

namespace talven {

/// A text file that replaces any file of its name. All functions throw FatalIoError if the system refuses.
class OutputFile : public TextOutput {
 public:
  OutputFile() = default;
  /// Writes out what is left without a further check: after a fatal error files stay as far as they came.
  ~OutputFile() override;

  void Open(const Folder& folder, std::string_view name, Spelling spelling = Spelling::kAny);
  /// The same for a file that other processes may read at any time: what is there stays until it is written over, and
  /// closing cuts off the rest.
  void OpenOver(const Folder& folder, std::string_view name);
  const std::string& Name() const { return name_; }
  bool IsOpen() const { return stream_.is_open(); }
  /// Hands what was written to the system, so that others can read it.
  void Flush();
  /// Goes back to the start, and drops what was written: the next line is the first again.
  void Rewind();
  void Close();
  void CloseAndDelete();

 private:
  void HandOn() override { Flush(); }
  void FindPath(const Folder& folder, std::string_view name, Spelling spelling);
  void OpenReplacing();
  [[noreturn]] void Fail(std::string_view what) const;

  std::string name_;
  std::filesystem::path path_;
  std::ofstream stream_;
  bool is_written_over_ = false;
};

}  // namespace talven
