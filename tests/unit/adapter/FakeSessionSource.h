#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "adapter/SessionSource.h"

namespace talmo::test {

/// A source whose sessions are laid out beforehand.
class FakeSessionSource : public SessionSource {
 public:
  /// What happened to a source, which outlives it.
  struct Calls {
    std::vector<bool> wantedArtwork;
    std::vector<int> sent;
  };

  /// The sessions are given one after another; when the last one has been given, waiting for a
  /// change says that the helper has to end.
  FakeSessionSource(std::deque<std::optional<MediaSession>> sessions, Calls& calls)
      : sessions_(std::move(sessions)), calls_(calls) {}

  bool delivers = true;

  std::optional<MediaSession> current(bool wantsArtwork) override {
    calls_.wantedArtwork.push_back(wantsArtwork);
    return sessions_.empty() ? std::nullopt : sessions_.front();
  }

  bool waitForChange() override {
    sessions_.pop_front();
    return !sessions_.empty();
  }

  bool send(int command) override {
    calls_.sent.push_back(command);
    return delivers;
  }

 private:
  std::deque<std::optional<MediaSession>> sessions_;
  Calls& calls_;
};

}  // namespace talmo::test
