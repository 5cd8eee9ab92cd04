#include "app/run/InputPath.h"

#include <algorithm>

#include "textio/FileNames.h"
#include "textio/LetterCase.h"

namespace talven {

InputPath::InputPath(std::string text) : text_(std::move(text)) {
  const std::filesystem::path path = ToPath(text_);
  home_ = Folder(path.has_parent_path() ? path.parent_path() : std::filesystem::path("."));
  name_ = FromPath(path.filename());
  stem_ = FromPath(path.stem());
  extension_ = ToLower(FromPath(path.extension()));
  if (!extension_.empty()) extension_.erase(0, 1);
}

std::string InputPath::HeadName() const {
  std::string name = stem_;
  std::ranges::replace_if(
      name, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, ' ');
  return name;
}

}  // namespace talven
