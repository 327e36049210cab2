#include "tests/backend/interface/view/PictureComparison.h"

#include <algorithm>
#include <cstdlib>
#include <QString>
#include <utility>

namespace talmo::test {
namespace {

// Of 255, after blurring: what smoothing an edge differently comes to stays below.
constexpr int tolerance = 20;
// About the area of one letter in a panel's picture.
constexpr double toleratedShare = 0.0004;

/// Blurred by about a pixel.
QImage blurred(const QImage& picture) {
  const QSize size = picture.size();
  return picture.convertToFormat(QImage::Format_RGB32)
      .scaled(size / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
      .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

int distance(QRgb one, QRgb other) {
  return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                   std::abs(qBlue(one) - qBlue(other))});
}

QString pathOf(const std::filesystem::path& path) {
  return QString::fromStdString(path.string());
}

}  // namespace

Difference Difference::between(const QImage& one, const QImage& other) {
  const QImage first = blurred(one);
  const QImage second = blurred(other);
  Difference difference{.picture = QImage(one.size(), QImage::Format_RGB32)};
  int count = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const bool differs = distance(first.pixel(x, y), second.pixel(x, y)) > tolerance;
      if (differs) ++count;
      const int grey = 160 + qGray(first.pixel(x, y)) / 3;
      difference.picture.setPixel(x, y, differs ? qRgb(220, 0, 60) : qRgb(grey, grey, grey));
    }
  }
  difference.share = static_cast<double>(count) / (one.width() * one.height());
  return difference;
}

PictureComparison::PictureComparison(std::filesystem::path keptFolder,
                                     std::filesystem::path madeFolder)
    : keptFolder_(std::move(keptFolder)), madeFolder_(std::move(madeFolder)) {
  std::filesystem::create_directories(madeFolder_);
}

std::string PictureComparison::complaintAbout(const std::string& name, const QImage& made) {
  made_.insert(name);
  const std::filesystem::path keptPath = keptFolder_ / (name + ".png");
  const std::filesystem::path madePath = madeFolder_ / (name + ".png");
  const std::filesystem::path differencePath = madeFolder_ / (name + ".difference.png");
  std::filesystem::remove(differencePath);
  made.save(pathOf(madePath));
  if (std::getenv("TALMO_KEEP_PICTURES") != nullptr) made.save(pathOf(keptPath));

  const QImage kept(pathOf(keptPath));
  if (kept.isNull()) return keptPath.string() + " is not there; made is " + madePath.string();
  if (kept.size() != made.size()) {
    return madePath.string() + " has another size than " + keptPath.string();
  }
  const Difference difference = Difference::between(kept, made);
  if (difference.share <= toleratedShare) return {};
  difference.picture.save(pathOf(differencePath));
  return madePath.string() + " is not " + keptPath.string() + "; the difference (" +
         std::to_string(difference.share * 100) + " %) is in " + differencePath.string();
}

std::vector<std::string> PictureComparison::keptButNotMade() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(keptFolder_)) {
    const std::string name = entry.path().stem().string();
    if (!made_.contains(name)) names.push_back(name);
  }
  return names;
}

}  // namespace talmo::test
