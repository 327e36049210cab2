#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace talmo {

/// `text` with its percent-escapes decoded. What is no escape stays as it is written.
std::string percentDecoded(std::string_view text);

/// The path of a "file:" URL of this machine; nothing for anything else. May be any bytes but NUL.
/// Characters that should have been escaped are taken as they are written.
std::optional<std::string> filePathOf(std::string_view url);

/// What a track without a title can be called: the decoded name of its file without the extension,
/// or the name as it is written when it does not decode to text. Empty when the URL names no file.
std::string titleFromUrl(std::string_view url);

/// `text`, or its beginning where it is longer than anything to be shown. The text is UTF-8.
std::string boundedText(std::string text);

}  // namespace talmo
