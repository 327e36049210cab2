#include "nowplaying/AdapterLines.h"

#include <utility>

#include "nowplaying/AdapterJson.h"

namespace talmo {

std::vector<std::string> AdapterLines::append(std::string piece) {
  std::vector<std::string> lines;
  std::size_t begin = 0;
  while (true) {
    const std::size_t end = piece.find('\n', begin);
    if (end == std::string::npos) break;
    std::string line = takeLine(std::string_view(piece).substr(begin, end - begin));
    if (!line.empty()) lines.push_back(std::move(line));
    begin = end + 1;
  }
  if (begin == piece.size() || isTooLong_) return lines;
  length_ += piece.size() - begin;
  if (length_ > maximumLength) {
    clear();
    isTooLong_ = true;
  } else {
    pieces_.push_back({.bytes = std::move(piece), .begin = begin});
  }
  return lines;
}

void AdapterLines::clear() {
  pieces_.clear();
  length_ = 0;
  isTooLong_ = false;
}

std::string AdapterLines::takeLine(std::string_view end) {
  std::string line;
  if (!isTooLong_ && length_ + end.size() <= maximumLength) {
    line.reserve(length_ + end.size() + AdapterJson::padding);
    for (const Piece& piece : pieces_) line.append(piece.bytes, piece.begin);
    line += end;
  }
  clear();
  return line;
}

}  // namespace talmo
