#include "support/FuzzedSession.h"

#include <stdlib.h>
#include <sys/resource.h>

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <new>
#include <sstream>

#include "app/Driver.h"
#include "textio/FatalIoError.h"
#include "textio/FixedText.h"
#include "ui/console/ConsoleToolkit.h"

namespace talven::fuzz {
namespace {

namespace fs = std::filesystem;

constexpr rlim_t kLargestOutput = 1 << 20;

void WriteFiles(const Files& files) {
  for (const auto& [name, content] : files) std::ofstream(name, std::ios::binary) << content;
}

struct EndlessList {};

/// The terminal's toolkit with a stand-in for the refinement program, which leaves its files.
class FuzzedToolkit : public ConsoleToolkit {
 public:
  FuzzedToolkit(const Way& way, std::istream& input, std::ostream& output, const Files& refined)
      : ConsoleToolkit(Arguments(way), input, output, output, false), refined_(refined) {}
  std::optional<int> IOsCommand(std::string_view /*command*/, int /*flags*/) override {
    WriteFiles(refined_);
    return 0;
  }
  /// Ends a session that sets out for a dummy list with a limit of l beyond four digits: with an absence it may pass
  /// over billions of reflections before it writes one, as it was asked to.
  void WGrTextAt(float x, float y, std::string_view text) override {
    if (text.starts_with(" Hmax Kmax and Lmax are ") && TrimRight(text).ends_with("****")) throw EndlessList();
    ConsoleToolkit::WGrTextAt(x, y, text);
  }

 private:
  static std::vector<std::string> Arguments(const Way& way) {
    std::vector<std::string> arguments = {"/usr/bin/talven-console"};
    arguments.insert(arguments.end(), way.arguments.begin(), way.arguments.end());
    return arguments;
  }

  const Files& refined_;
};

/// What the program finds on its disk. It is made anew for each session and gone at the end of the process.
class Scratch {
 public:
  Scratch() {
    std::string root = fs::canonical(fs::temp_directory_path()) / "talven-fuzz-XXXXXX";
    if (mkdtemp(root.data()) == nullptr) std::abort();
    root_ = root;
    for (const char* variable : {"HOME", "XDG_DATA_HOME"}) setenv(variable, (root_ / "home").c_str(), 1);
  }
  ~Scratch() {
    std::error_code error;
    fs::remove_all(root_, error);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  void Fill(const Files& files) const {
    const fs::path folder = root_ / "home/talven/drives/c/exe/VELDOR";
    const fs::path work = root_ / "work";
    fs::remove_all(root_ / "home");
    fs::remove_all(work);
    fs::create_directories(folder);
    fs::create_directory(work);
    std::ofstream(folder / "DIR.DEF") << work.string() << '\n';
    fs::current_path(work);
    WriteFiles(files);
  }

 private:
  fs::path root_;
};

/// While it lives, files that can't grow further fail as on a full disk: an input must not fill the real one.
class OutputLimit {
 public:
  OutputLimit() {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{.rlim_cur = kLargestOutput, .rlim_max = before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~OutputLimit() { setrlimit(RLIMIT_FSIZE, &before_); }
  OutputLimit(const OutputLimit&) = delete;
  OutputLimit& operator=(const OutputLimit&) = delete;

 private:
  rlimit before_{};
};

/// The program's life as in RunConsole, in storage that stays: fresh pages for its arrays would take most of the time.
void RunProgram(const Way& way, const Files& refined) {
  alignas(Program) static std::byte storage[sizeof(Program)];
  const OutputLimit limit;
  std::istringstream input(way.answers);
  std::ostringstream output;
  FuzzedToolkit toolkit(way, input, output, refined);
  Ui ui(toolkit);
  Program* const program = new (storage) Program();
  try {
    RunDriver(ui, *program);
  } catch (const FatalIoError&) {
  } catch (const RefusedAnswer&) {
  } catch (const EndlessList&) {
  }
  std::destroy_at(program);
}

}  // namespace

Way Options(const std::vector<std::string>& options, const std::string& job) {
  std::string answers;
  for (const std::string& option : options) answers += "1006=" + option.substr(0, 1) + "\nok" + option.substr(1) + "\n";
  return {{job, "C:"}, answers + "exit\n"};
}

Way Unattended(const std::string& job) {
  return {{job, "C:", "MOLPAK"}, ""};
}

const Way& TakeWay(std::string_view& input, const std::vector<Way>& ways) {
  const auto byte = static_cast<unsigned char>(input.empty() ? '0' : input.front());
  input.remove_prefix(input.empty() ? 0 : 1);
  return ways[static_cast<unsigned char>(byte - '0') % ways.size()];
}

void RunSession(const Files& files, const Way& way, const Files& refined) {
  static const Scratch scratch;
  const fs::path before = fs::current_path();
  scratch.Fill(files);
  RunProgram(way, refined);
  fs::current_path(before);
}

}  // namespace talven::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  talven::fuzz::RunInput({reinterpret_cast<const char*>(data), size});
  return 0;
}
