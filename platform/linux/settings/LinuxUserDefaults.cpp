#include "platform/linux/settings/LinuxUserDefaults.h"

#include <utility>

#include "platform/linux/files/BaseFolders.h"
#include "platform/linux/files/WholeFile.h"
#include "support/Logger.h"
#include "support/MutexLock.h"

namespace talmo {
namespace {

constexpr Logger log("settings");

// Deeper nesting than any settings have; what writes JSON again does so recursively.
constexpr int deepestNesting = 100;

/// The object that `text` is; nothing when it is none.
std::optional<nlohmann::ordered_json> parseObject(const std::string& text) {
  bool tooDeep = false;
  nlohmann::ordered_json json = nlohmann::ordered_json::parse(
      text,
      [&tooDeep](int depth, nlohmann::ordered_json::parse_event_t, nlohmann::ordered_json&) {
        if (depth > deepestNesting) tooDeep = true;
        return !tooDeep;
      },
      false);
  if (tooDeep || !json.is_object()) return std::nullopt;
  return json;
}

}  // namespace

LinuxUserDefaults::LinuxUserDefaults(std::filesystem::path file) : file_(std::move(file)) {}

std::filesystem::path LinuxUserDefaults::standardFile() {
  return configHome() / "talmo" / "settings.json";
}

std::optional<std::string> LinuxUserDefaults::string(const std::string& key) const {
  readOnce();
  const MutexLock lock(valuesLock_);
  const auto entry = values_.find(key);
  if (entry == values_.end() || !entry->is_string()) return std::nullopt;
  return entry->get<std::string>();
}

void LinuxUserDefaults::setString(const std::string& key, const std::optional<std::string>& value) {
  change(key, value ? Json(*value) : Json(Json::value_t::discarded));
}

bool LinuxUserDefaults::boolean(const std::string& key) const {
  readOnce();
  const MutexLock lock(valuesLock_);
  const auto entry = values_.find(key);
  return entry != values_.end() && entry->is_boolean() && entry->get<bool>();
}

void LinuxUserDefaults::setBoolean(const std::string& key, bool value) {
  change(key, Json(value));
}

void LinuxUserDefaults::readOnce() const {
  std::call_once(read_, [this] {
    const WholeFile file(file_);
    WholeFile::Content content = file.read(longestFile);
    if (!content.text && !content.failure) return;
    if (content.text) {
      if (std::optional<Json> values = parseObject(*content.text)) {
        const MutexLock lock(valuesLock_);
        values_ = std::move(*values);
        return;
      }
      content.failure = "it is not a JSON object";
    }
    if (const auto aside = file.putAside()) {
      log.error(
          "cannot read the settings in %{public}s: %{public}s; kept as %{public}s, beginning "
          "with the defaults",
          file_.native(), *content.failure, aside->native());
      return;
    }
    log.error(
        "cannot read the settings in %{public}s: %{public}s; using the defaults and storing "
        "nothing",
        file_.native(), *content.failure);
    const MutexLock lock(valuesLock_);
    memoryOnly_ = true;
  });
}

void LinuxUserDefaults::change(const std::string& key, const Json& value) {
  readOnce();
  const MutexLock write(writeLock_);
  std::string text;
  {
    const MutexLock lock(valuesLock_);
    const auto entry = values_.find(key);
    const bool same =
        value.is_discarded() ? entry == values_.end() : entry != values_.end() && *entry == value;
    if (same && !unsaved_) return;
    if (value.is_discarded()) {
      values_.erase(key);
    } else {
      values_[key] = value;
    }
    if (memoryOnly_) return;
    text = values_.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
  }
  unsaved_ = !store(text);
}

bool LinuxUserDefaults::store(const std::string& text) const {
  const std::optional<std::string> failure = WholeFile(file_).write(text);
  if (failure) log.error("cannot store the settings: %{public}s", *failure);
  return !failure;
}

}  // namespace talmo
