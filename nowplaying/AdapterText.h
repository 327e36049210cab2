#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace talmo {

/// A text of the adapter's output. Immutable and cheap to copy: a long one, an artwork above all,
/// stays where it was read and is never copied.
class AdapterText {
 public:
  /// `view` lies in `owner`.
  AdapterText(std::shared_ptr<const std::string> owner, std::string_view view)
      : owner_(std::move(owner)), view_(view) {}

  explicit AdapterText(std::string text)
      : owner_(std::make_shared<const std::string>(std::move(text))), view_(*owner_) {}

  std::string_view view() const { return view_; }

  bool operator==(const AdapterText& other) const {
    return (view_.data() == other.view_.data() && view_.size() == other.view_.size()) ||
           view_ == other.view_;
  }

 private:
  std::shared_ptr<const std::string> owner_;
  std::string_view view_;
};

}  // namespace talmo
