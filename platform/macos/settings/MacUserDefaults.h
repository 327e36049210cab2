#pragma once

#import <Foundation/Foundation.h>
#include <optional>
#include <string>

#include "platform/UserDefaults.h"

namespace talmo {

/// A domain of the person's defaults, in the program its own. What is stored, the system writes to
/// the disk by itself, and says nothing of failure.
class MacUserDefaults : public UserDefaults {
 public:
  explicit MacUserDefaults(NSUserDefaults* defaults = NSUserDefaults.standardUserDefaults)
      : defaults_(defaults) {}

  std::optional<std::string> string(const std::string& key) const override;
  void setString(const std::string& key, const std::optional<std::string>& value) override;
  bool boolean(const std::string& key) const override;
  void setBoolean(const std::string& key, bool value) override;

 private:
  NSUserDefaults* const defaults_;
};

}  // namespace talmo
