// The floor that a handler is measured against: it reads the same input bytes and writes as many output bytes, and does
// nothing else.  usage: bench_floor READ... -- SIZE TO [SIZE TO]...

#include <fstream>
#include <string>
#include <string_view>

namespace {

std::string ReadWhole(const char* name) {
  std::ifstream stream(name, std::ios::binary | std::ios::ate);
  std::string content(static_cast<std::size_t>(stream.tellg()), '\0');
  stream.seekg(0);
  stream.read(content.data(), static_cast<std::streamsize>(content.size()));
  return content;
}

}  // namespace

int main(int argc, char** argv) {
  int i = 1;
  std::size_t read = 0;
  for (; i < argc && std::string_view(argv[i]) != "--"; ++i) read += ReadWhole(argv[i]).size();
  for (++i; i + 1 < argc; i += 2) {
    const std::string content(static_cast<std::size_t>(std::stoul(argv[i])), 'x');
    std::ofstream(argv[i + 1], std::ios::binary) << content;
  }
  return read == 0 ? 1 : 0;
}
