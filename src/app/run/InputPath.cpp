#include "app/run/InputPath.h"

#include <algorithm>

#include "textio/FileNames.h"

namespace talven {

InputPath::InputPath(std::string text) : text_(std::move(text)) {
  const std::filesystem::path path = ToPath(text_);
  home_ = Folder(path.has_parent_path() ? path.parent_path() : std::filesystem::path("."));
  name_ = FromPath(path.filename());
  stem_ = FromPath(path.stem());
  extension_ = FoldCase(FromPath(path.extension()));
  if (!extension_.empty()) extension_.erase(0, 1);
}

std::string InputPath::HeadName() const {
  std::string name = stem_;
  std::ranges::replace_if(
      name, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, ' ');
  return name;
}

std::string FoldCase(std::string_view name) {
  std::string folded(name);
  std::ranges::transform(folded, folded.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; });
  return folded;
}

}  // namespace talven
