#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace talmo {

/// A value whose observers are told before it changes. Belongs to one thread.
template <class Value>
class Published {
 public:
  /// Gets the value that comes; the value that goes is still there.
  using Observer = std::function<void(const Value&)>;
  /// Stands for one observer; never 0, never given twice.
  using Token = std::uint64_t;

  const Value& get() const { return value_; }

  /// Tells the observers, in the order in which they came, and then sets the value, be it a new one
  /// or the same again.
  void set(Value value) {
    std::vector<Token> tokens;
    tokens.reserve(observers_.size());
    for (const auto& [token, observer] : observers_) tokens.push_back(token);
    for (const Token token : tokens) {
      const auto found = observers_.find(token);
      if (found == observers_.end()) continue;
      // A copy, as an observer may take itself away.
      const Observer observer = found->second;
      observer(value);
    }
    value_ = std::move(value);
  }

  Token observe(Observer observer) {
    observers_.emplace(++lastToken_, std::move(observer));
    return lastToken_;
  }

  /// Ends an observation, also of an observer that has yet to be told.
  void stopObserving(Token token) { observers_.erase(token); }

 private:
  Value value_{};
  Token lastToken_ = 0;
  std::map<Token, Observer> observers_;
};

}  // namespace talmo
