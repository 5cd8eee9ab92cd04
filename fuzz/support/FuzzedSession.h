// Whole sessions of the terminal program on input that a fuzzer makes.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace talven::fuzz {

/// What a target does with one input: each defines it. All that it may end in is a return.
void RunInput(std::string_view input);

/// Files of the job by name.
using Files = std::map<std::string, std::string_view>;

/// How a session is run: arguments after the program's path, and answers.
struct Way {
  std::vector<std::string> arguments;
  std::string answers;
};

/// Job ABC started by its caller: options in turn, each with the answers to it, as "4\n1006=3\nok\n".
Way Options(const std::vector<std::string>& options, const std::string& job = "ABC");
/// The job on an unattended run, without questions.
Way Unattended(const std::string& job);

/// Takes the first byte off an input, which chooses one of the ways: '0' the first, and so on, round and round.
const Way& TakeWay(std::string_view& input, const std::vector<Way>& ways);

/// Runs the program on these files and no others, in a directory of its own with a data home where no program lies that
/// it could start; `refined` is what the refinement leaves. Output files end with a fatal error at a megabyte.
void RunSession(const Files& files, const Way& way, const Files& refined = {});

}  // namespace talven::fuzz
