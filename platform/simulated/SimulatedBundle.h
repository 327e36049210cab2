#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "platform/Bundle.h"
#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo {

/// The bundle of the simulated machine; at first with the adapter's script and framework. What it
/// names and which files there are is set independently. Any thread.
class SimulatedBundle : public Bundle {
 public:
  static constexpr auto bundleURL = "file:///Applications/Talmo.app/";
  static constexpr auto adapterScript =
      "/Applications/Talmo.app/Contents/Resources/mediaremote-adapter.pl";
  static constexpr auto frameworks = "/Applications/Talmo.app/Contents/Frameworks";
  static constexpr auto adapterFramework =
      "/Applications/Talmo.app/Contents/Frameworks/MediaRemoteAdapter.framework";

  std::string url() const override { return bundleURL; }
  std::optional<std::string> identifier() const override {
    const MutexLock lock(mutex_);
    return identifier_;
  }
  std::optional<std::string> resourcePath(const std::string& name,
                                          const std::string& extension) const override {
    const MutexLock lock(mutex_);
    const auto found = resources_.find(name + "." + extension);
    if (found == resources_.end()) return std::nullopt;
    return found->second;
  }
  std::optional<std::string> privateFrameworksPath() const override {
    const MutexLock lock(mutex_);
    return frameworks_;
  }
  std::optional<std::string> objectForInfoDictionaryKey(const std::string& key) const override {
    const MutexLock lock(mutex_);
    const auto found = info_.find(key);
    if (found == info_.end()) return std::nullopt;
    return found->second;
  }
  bool fileExists(const std::string& path) const override {
    const MutexLock lock(mutex_);
    return files_.contains(path);
  }

  /// "nl.brelm.Talmo" at first.
  void setIdentifier(std::optional<std::string> identifier) {
    const MutexLock lock(mutex_);
    identifier_ = std::move(identifier);
  }
  /// Names the path of the resource `file` ("name.extension"), or takes it away.
  void setResource(const std::string& file, std::optional<std::string> path) {
    const MutexLock lock(mutex_);
    if (path) {
      resources_[file] = *std::move(path);
    } else {
      resources_.erase(file);
    }
  }
  /// Sets a text in the information dictionary, which is empty at first.
  void setInfo(const std::string& key, const std::string& value) {
    const MutexLock lock(mutex_);
    info_[key] = value;
  }
  void setPrivateFrameworksPath(std::optional<std::string> path) {
    const MutexLock lock(mutex_);
    frameworks_ = std::move(path);
  }
  void setFileExists(const std::string& path, bool exists) {
    const MutexLock lock(mutex_);
    if (exists) {
      files_.insert(path);
    } else {
      files_.erase(path);
    }
  }

 private:
  mutable Mutex mutex_;
  std::optional<std::string> identifier_ TALMO_GUARDED_BY(mutex_) = "nl.brelm.Talmo";
  std::map<std::string, std::string> resources_ TALMO_GUARDED_BY(mutex_){
      {"mediaremote-adapter.pl", adapterScript}};
  std::map<std::string, std::string> info_ TALMO_GUARDED_BY(mutex_);
  std::optional<std::string> frameworks_ TALMO_GUARDED_BY(mutex_) = frameworks;
  std::set<std::string> files_ TALMO_GUARDED_BY(mutex_){adapterScript, frameworks,
                                                        adapterFramework};
};

}  // namespace talmo
