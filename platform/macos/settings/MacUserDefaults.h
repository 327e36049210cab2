#pragma once

#import <Foundation/Foundation.h>
#include <optional>
#include <string>

#include "platform/UserDefaults.h"

namespace talmo {

/// The standard defaults of the program. What it stores, the system writes to the disk by itself,
/// and says nothing of failure.
class MacUserDefaults : public UserDefaults {
 public:
  std::optional<std::string> string(const std::string& key) const override;
  void setString(const std::string& key, const std::optional<std::string>& value) override;
  bool boolean(const std::string& key) const override;
  void setBoolean(const std::string& key, bool value) override;

 private:
  NSUserDefaults* const defaults_ = NSUserDefaults.standardUserDefaults;
};

}  // namespace talmo
