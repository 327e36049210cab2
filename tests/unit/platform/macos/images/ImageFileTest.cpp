#include <absl/strings/escaping.h>
#include <string>

#include <gtest/gtest.h>

#include "platform/macos/images/ImageFile.h"

namespace talmo::test {
namespace {

using namespace std::string_literals;

std::string decoded(const std::string& base64) {
  std::string bytes;
  EXPECT_TRUE(absl::Base64Unescape(base64, &bytes));
  return bytes;
}

// Each of three by two pixels, made by ImageMagick 6.9.
std::string png() {
  return decoded(
      "iVBORw0KGgoAAAANSUhEUgAAAAMAAAACAQMAAACnuvRZAAAABlBMVEX/AAAAAP9sof2OAAAADElEQVQI12NgYHgAAADk"
      "AOF67cd7AAAAAElFTkSuQmCC");
}

std::string jpeg() {
  return decoded(
      "/9j/4AAQSkZJRgABAQAAAQABAAD/2wBDABQODxIPDRQSEBIXFRQYHjIhHhwcHj0sLiQySUBMS0dARkVQWnNiUFVtVkVG"
      "ZIhlbXd7gYKBTmCNl4x9lnN+gXz/2wBDARUXFx4aHjshITt8U0ZTfHx8fHx8fHx8fHx8fHx8fHx8fHx8fHx8fHx8fHx8"
      "fHx8fHx8fHx8fHx8fHx8fHx8fHz/wAARCAACAAMDASIAAhEBAxEB/8QAFQABAQAAAAAAAAAAAAAAAAAAAAb/xAAYEAEB"
      "AAMAAAAAAAAAAAAAAAAAAhNSkf/EABQBAQAAAAAAAAAAAAAAAAAAAAX/xAAUEQEAAAAAAAAAAAAAAAAAAAAA/9oADAMB"
      "AAIRAxEAPwCayXvXQCBR/9k=");
}

/// Of two pictures.
std::string gif() {
  return decoded(
      "R0lGODlhAwACAPAAAP8AAAAAACH5BAAKAAAAIf8LTkVUU0NBUEUyLjADAQAAACwAAAAAAwACAAACAoRfACH5BAAKAAAA"
      "LAAAAAADAAIAgAAA/wAAAAIChF8AOw==");
}

std::string webP() {
  return decoded(
      "UklGRj4AAABXRUJQVlA4IDIAAAAwAgCdASoDAAIAAgA0JaACdLoB+AADISoiEAD++33iaLPl9/bsFnLq//G7cYb70AAA"
      "AA==");
}

void expectWholeFrom(const std::string& file, std::size_t length) {
  for (std::size_t size = 0; size <= file.size(); ++size) {
    EXPECT_EQ(isWholeImageFile(file.substr(0, size)), size >= length) << size;
  }
  EXPECT_TRUE(isWholeImageFile(file + "and more"));
}

TEST(ImageFile, IsWholeWithItsLastByteOnly) {
  expectWholeFrom(png(), png().size());
  expectWholeFrom(jpeg(), jpeg().size());
  expectWholeFrom(webP(), webP().size());
}

TEST(ImageFile, OfSeveralPicturesIsWholeWithTheFirst) {
  // Up to the second picture's extension: the first one's end is the empty block before it.
  expectWholeFrom(gif(), gif().rfind("\x21\xF9"s));
}

TEST(ImageFile, WithAThumbnailDoesNotEndWithThat) {
  const std::string whole = jpeg();
  // An application segment of 8 bytes, its length included, that holds the end of another picture.
  std::string file = whole.substr(0, 2) + "\xFF\xE1\x00\x08\xFF\xD8\xFF\xD9zz"s + whole.substr(2);
  expectWholeFrom(file, file.size());
}

TEST(ImageFile, WithFillBytesAndRestartsIsWholeAtItsEnd) {
  const std::string file = "\xFF\xD8\xFF\xFF\xDA\x00\x02 \xFF\x00 \xFF\xD0 \xFF\xFF\xD9"s;
  expectWholeFrom(file, file.size());
}

TEST(ImageFile, IsOfAKindThatArtworksComeIn) {
  EXPECT_FALSE(isWholeImageFile(""));
  EXPECT_FALSE(isWholeImageFile("\0"s));
  EXPECT_FALSE(isWholeImageFile("<!DOCTYPE html><title>404</title>"));
  EXPECT_FALSE(isWholeImageFile("<svg xmlns=\"http://www.w3.org/2000/svg\"/>"));
  EXPECT_FALSE(isWholeImageFile("P1 1 1 0\n"));
  EXPECT_FALSE(isWholeImageFile("II*\0\x08\0\0\0"s));
  EXPECT_FALSE(isWholeImageFile("%PDF-1.4\n"));
  EXPECT_FALSE(isWholeImageFile("RIFF\x04\0\0\0WAVE"s));
  EXPECT_FALSE(isWholeImageFile("GIF90a" + gif().substr(6)));
  EXPECT_FALSE(isWholeImageFile(std::string(100'000, '\xFF')));
}

TEST(ImageFile, IsNotWholeWithoutAPicture) {
  EXPECT_FALSE(isWholeImageFile("GIF89a\x03\0\x02\0\0\0\0\x3B"s));
  EXPECT_FALSE(isWholeImageFile("\xFF\xD8\xFF\xE0\x00\x01zz\xFF\xD9"s)) << "a segment too short";
}

TEST(ImageFile, ThatClaimsToBeLongIsNotWhole) {
  EXPECT_FALSE(isWholeImageFile("\x89PNG\r\n\x1A\n\xFF\xFF\xFF\xFFIHDR"s));
  EXPECT_FALSE(isWholeImageFile("RIFF\xFF\xFF\xFF\xFFWEBP"s));
}

}  // namespace
}  // namespace talmo::test
