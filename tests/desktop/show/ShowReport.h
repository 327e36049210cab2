#pragma once

#include <string>

namespace talmo::test {

/// What the show says: chapters of what was done, and whether what was seen is as it should be. In
/// colours at a terminal.
class ShowReport {
 public:
  ShowReport();

  /// Begins the next chapter, which has a number.
  void chapter(const std::string& title);

  /// Says what is done next; broken into lines where it is long.
  void tell(const std::string& text) const;

  /// Says what was seen, with its verdict behind it. The verdict.
  bool check(const std::string& seen, bool good);

  /// Shows a text as it is, further to the right.
  static void quote(const std::string& text);

  /// Says how all of it went.
  void sum() const;

  /// Whether everything was as it should be so far.
  bool isGood() const { return bad_ == 0; }

 private:
  std::string painted(const char* colour, const std::string& text) const;

  const bool hasColours_;
  int chapters_ = 0;
  int good_ = 0;
  int bad_ = 0;
};

}  // namespace talmo::test
