#pragma once

#include <filesystem>
#include <QImage>
#include <set>
#include <string>
#include <vector>

namespace talmo::test {

/// Compares pictures with kept ones as an eye would: edges that are smoothed a little differently
/// count for nothing, a line that is missing or has moved does. Each picture that is made is
/// written down, and beside one that differs a picture of the difference. With TALMO_KEEP_PICTURES
/// in the environment, what is made replaces what is kept.
class PictureComparison {
 public:
  PictureComparison(std::filesystem::path keptFolder, std::filesystem::path madeFolder);

  /// Empty when the picture is the kept one; otherwise what is wrong, and which files show it.
  std::string complaintAbout(const std::string& name, const QImage& made);

  /// The kept pictures that were not asked about.
  std::vector<std::string> keptButNotMade() const;

 private:
  const std::filesystem::path keptFolder_;
  const std::filesystem::path madeFolder_;
  std::set<std::string> made_;
};

/// The share of the pixels in which two pictures of one size look different, and where.
struct Difference {
  double share = 0;
  QImage picture;

  static Difference between(const QImage& one, const QImage& other);
};

}  // namespace talmo::test
