#include "tests/support/FakePlayer.h"

#include <array>
#include <cerrno>
#include <poll.h>
#include <stdexcept>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include <systemd/sd-bus.h>

#include "support/MutexLock.h"

namespace talmo::test {
namespace {

constexpr const char* objectPath = "/org/mpris/MediaPlayer2";
constexpr const char* rootInterface = "org.mpris.MediaPlayer2";
constexpr const char* playerInterface = "org.mpris.MediaPlayer2.Player";

void check(int result, const char* what) {
  if (result < 0) throw std::system_error(-result, std::generic_category(), what);
}

// So many that the player still answers in between.
constexpr int floodStep = 200;

int appendText(sd_bus_message* reply, const char* key, const char* type, const std::string& text) {
  return text.empty() ? 0 : sd_bus_message_append(reply, "{sv}", key, type, text.c_str());
}

int appendTrack(sd_bus_message* reply, const FakeTrack& track) {
  if (track.hasWrongTypes) {
    return sd_bus_message_append(reply, "a{sv}", 6, "xesam:title", "i", 1, "xesam:artist", "s",
                                 "a text", "xesam:album", "as", 1, "a list", "mpris:length", "s",
                                 "long", "mpris:trackid", "d", 1.5, "mpris:artUrl", "a{sv}", 0);
  }
  check(sd_bus_message_open_container(reply, 'a', "{sv}"), "a dictionary");
  check(appendText(reply, "xesam:title", "s", track.title), "the title");
  check(appendText(reply, "xesam:album", "s", track.album), "the album");
  check(appendText(reply, "xesam:url", "s", track.url), "the address");
  check(appendText(reply, "mpris:artUrl", "s", track.artUrl), "the artwork");
  check(appendText(reply, "mpris:trackid", "o", track.trackid), "the track's name");
  if (track.length) {
    check(sd_bus_message_append(reply, "{sv}", "mpris:length", "x", *track.length), "the length");
  }
  if (!track.artists.empty()) {
    check(sd_bus_message_open_container(reply, 'e', "sv"), "an entry");
    check(sd_bus_message_append(reply, "s", "xesam:artist"), "the artists' key");
    check(sd_bus_message_open_container(reply, 'v', "as"), "a variant");
    check(sd_bus_message_open_container(reply, 'a', "s"), "a list");
    for (const std::string& artist : track.artists) {
      check(sd_bus_message_append(reply, "s", artist.c_str()), "an artist");
    }
    for (int level = 0; level < 3; ++level) check(sd_bus_message_close_container(reply), "an end");
  }
  return sd_bus_message_close_container(reply);
}

}  // namespace

/// What sd-bus calls, with the player as its user data; always on the player's thread.
struct FakePlayer::Callbacks {
  static int command(sd_bus_message* call, void* data, sd_bus_error* error) {
    FakePlayer& player = *static_cast<FakePlayer*>(data);
    const std::string member = sd_bus_message_get_member(call);
    if (!player.take(member)) return sd_bus_error_set(error, refusalName, refusalMessage);
    const int result = sd_bus_reply_method_return(call, nullptr);
    sd_bus_emit_properties_changed(player.bus_.get(), objectPath, playerInterface, "PlaybackStatus",
                                   "Metadata", nullptr);
    return result;
  }

  static int playbackStatus(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply,
                            void* data, sd_bus_error*) {
    const std::string status = static_cast<FakePlayer*>(data)->playbackStatus();
    return sd_bus_message_append(reply, "s", status.c_str());
  }

  static int metadata(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply,
                      void* data, sd_bus_error*) {
    FakePlayer& player = *static_cast<FakePlayer*>(data);
    std::optional<FakeTrack> shown;
    {
      const MutexLock lock(player.mutex_);
      shown = player.shown_;
    }
    if (shown) return appendTrack(reply, *shown);
    const std::string track = std::to_string(player.track());
    const std::string path = "/nl/brelm/Talmo/Test/track/" + track;
    const std::string title = "Track " + track;
    const std::string url = "file:///tunes/track" + track + ".wav";
    return sd_bus_message_append(reply, "a{sv}", 5, "mpris:trackid", "o", path.c_str(),
                                 "mpris:length", "x", std::int64_t{180'000'000}, "xesam:title", "s",
                                 title.c_str(), "xesam:artist", "as", 1, "Fake Artist", "xesam:url",
                                 "s", url.c_str());
  }

  static int position(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply,
                      void* data, sd_bus_error*) {
    FakePlayer& player = *static_cast<FakePlayer*>(data);
    const MutexLock lock(player.mutex_);
    return sd_bus_message_append(reply, "x", player.position_);
  }

  static int rate(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*,
                  sd_bus_error*) {
    return sd_bus_message_append(reply, "d", 1.0);
  }

  static int number(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*,
                    sd_bus_error*) {
    return sd_bus_message_append(reply, "i", 7);
  }

  static int yes(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*,
                 sd_bus_error*) {
    return sd_bus_message_append(reply, "b", 1);
  }

  static int desktopEntry(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply,
                          void* data, sd_bus_error*) {
    const Start& start = static_cast<FakePlayer*>(data)->start_;
    const std::string& entry = start.desktopEntry.empty() ? start.name : start.desktopEntry;
    return sd_bus_message_append(reply, "s", entry.c_str());
  }

  static int identity(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply,
                      void* data, sd_bus_error*) {
    return sd_bus_message_append(reply, "s", static_cast<FakePlayer*>(data)->start_.name.c_str());
  }
};

FakePlayer::FakePlayer(Start start)
    : start_(std::move(start)),
      behaviour_(start_.behaviour),
      playbackStatus_(start_.playbackStatus) {
  static const sd_bus_vtable root[] = {
      SD_BUS_VTABLE_START(0),
      SD_BUS_PROPERTY("Identity", "s", Callbacks::identity, 0, SD_BUS_VTABLE_PROPERTY_CONST),
      SD_BUS_PROPERTY("DesktopEntry", "s", Callbacks::desktopEntry, 0,
                      SD_BUS_VTABLE_PROPERTY_CONST),
      SD_BUS_VTABLE_END};
  static const sd_bus_vtable commands[] = {
      SD_BUS_VTABLE_START(0),
      SD_BUS_METHOD("PlayPause", "", "", Callbacks::command, SD_BUS_VTABLE_UNPRIVILEGED),
      SD_BUS_METHOD("Next", "", "", Callbacks::command, SD_BUS_VTABLE_UNPRIVILEGED),
      SD_BUS_METHOD("Previous", "", "", Callbacks::command, SD_BUS_VTABLE_UNPRIVILEGED),
      SD_BUS_METHOD("Play", "", "", Callbacks::command, SD_BUS_VTABLE_UNPRIVILEGED),
      SD_BUS_METHOD("Pause", "", "", Callbacks::command, SD_BUS_VTABLE_UNPRIVILEGED),
      SD_BUS_METHOD("Stop", "", "", Callbacks::command, SD_BUS_VTABLE_UNPRIVILEGED),
      SD_BUS_PROPERTY("CanControl", "b", Callbacks::yes, 0, SD_BUS_VTABLE_PROPERTY_CONST),
      SD_BUS_PROPERTY("CanPlay", "b", Callbacks::yes, 0, SD_BUS_VTABLE_PROPERTY_CONST),
      SD_BUS_PROPERTY("CanPause", "b", Callbacks::yes, 0, SD_BUS_VTABLE_PROPERTY_CONST),
      SD_BUS_PROPERTY("CanGoNext", "b", Callbacks::yes, 0, SD_BUS_VTABLE_PROPERTY_CONST),
      SD_BUS_PROPERTY("CanGoPrevious", "b", Callbacks::yes, 0, SD_BUS_VTABLE_PROPERTY_CONST),
      SD_BUS_VTABLE_END};
  static const sd_bus_vtable properties[] = {
      SD_BUS_VTABLE_START(0),
      SD_BUS_PROPERTY("PlaybackStatus", "s", Callbacks::playbackStatus, 0,
                      SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
      SD_BUS_PROPERTY("Metadata", "a{sv}", Callbacks::metadata, 0,
                      SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
      SD_BUS_PROPERTY("Position", "x", Callbacks::position, 0, 0),
      SD_BUS_PROPERTY("Rate", "d", Callbacks::rate, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
      SD_BUS_SIGNAL("Seeked", "x", 0),
      SD_BUS_VTABLE_END};
  static const sd_bus_vtable wrongProperties[] = {
      SD_BUS_VTABLE_START(0),
      SD_BUS_PROPERTY("PlaybackStatus", "i", Callbacks::number, 0,
                      SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
      SD_BUS_PROPERTY("Metadata", "i", Callbacks::number, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
      SD_BUS_PROPERTY("Position", "i", Callbacks::number, 0, 0),
      SD_BUS_PROPERTY("Rate", "i", Callbacks::number, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
      SD_BUS_VTABLE_END};

  sd_bus* bus = nullptr;
  check(sd_bus_open_user(&bus), "no session bus");
  bus_.reset(bus);
  check(sd_bus_set_exit_on_disconnect(bus, start_.endsWithBus ? 1 : 0), "the bus's end");
  check(sd_bus_add_object_vtable(bus, nullptr, objectPath, rootInterface, root, this),
        "the root interface");
  check(sd_bus_add_object_vtable(bus, nullptr, objectPath, playerInterface, commands, this),
        "the player interface");
  const bool wrong = start_.behaviour == Behaviour::answersWithWrongTypes;
  check(sd_bus_add_object_vtable(bus, nullptr, objectPath, playerInterface,
                                 wrong ? wrongProperties : properties, this),
        "the player's properties");
  check(sd_bus_request_name(bus, ("org.mpris.MediaPlayer2." + start_.name).c_str(), 0),
        "the player's bus name");
  wakeUp_ = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (wakeUp_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
  thread_ = std::thread([this] { serve(); });
}

FakePlayer::~FakePlayer() {
  {
    const MutexLock lock(mutex_);
    stopping_ = true;
  }
  wake();
  thread_.join();
  ::close(wakeUp_);
}

void FakePlayer::CloseBus::operator()(sd_bus* bus) const {
  sd_bus_close_unref(bus);
}

void FakePlayer::setBehaviour(Behaviour behaviour) {
  {
    const MutexLock lock(mutex_);
    behaviour_ = behaviour;
  }
  wake();
}

std::vector<std::string> FakePlayer::received() const {
  const MutexLock lock(mutex_);
  return received_;
}

std::string FakePlayer::playbackStatus() const {
  const MutexLock lock(mutex_);
  return playbackStatus_;
}

void FakePlayer::setPlaybackStatus(const std::string& status) {
  {
    const MutexLock lock(mutex_);
    playbackStatus_ = status;
    hasChanged_ = true;
  }
  wake();
}

void FakePlayer::setTrack(FakeTrack track) {
  {
    const MutexLock lock(mutex_);
    shown_ = std::move(track);
    hasChanged_ = true;
  }
  wake();
}

void FakePlayer::seek(std::int64_t position) {
  {
    const MutexLock lock(mutex_);
    position_ = position;
    hasSought_ = true;
  }
  wake();
}

void FakePlayer::setFlooding(bool isFlooding) {
  {
    const MutexLock lock(mutex_);
    isFlooding_ = isFlooding;
  }
  wake();
}

std::int64_t FakePlayer::track() const {
  const MutexLock lock(mutex_);
  return track_;
}

void FakePlayer::serve() {
  while (true) {
    {
      const MutexLock lock(mutex_);
      if (stopping_) return;
    }
    const bool hangs = behaviour() == Behaviour::hangs;
    if (!hangs) signal();
    if (!hangs && sd_bus_process(bus_.get(), nullptr) > 0) continue;
    // Without its bus the player is of no use to anyone; it waits to be destroyed.
    const bool open = sd_bus_is_open(bus_.get()) > 0;
    std::array<pollfd, 2> descriptors{
        pollfd{.fd = wakeUp_, .events = POLLIN, .revents = 0},
        pollfd{.fd = hangs || !open ? -1 : sd_bus_get_fd(bus_.get()),
               .events = static_cast<short>(open ? sd_bus_get_events(bus_.get()) : 0),
               .revents = 0}};
    ::poll(descriptors.data(), descriptors.size(), !hangs && isFlooding() ? 0 : -1);
    eventfd_t ignored = 0;
    ::eventfd_read(wakeUp_, &ignored);
  }
}

void FakePlayer::signal() {
  int changes = 0;
  std::optional<std::int64_t> position;
  {
    const MutexLock lock(mutex_);
    if (isFlooding_) {
      changes = floodStep;
    } else if (hasChanged_) {
      changes = 1;
    }
    hasChanged_ = false;
    if (std::exchange(hasSought_, false)) position = position_;
  }
  for (int count = 0; count < changes; ++count) {
    sd_bus_emit_properties_changed(bus_.get(), objectPath, playerInterface, "PlaybackStatus",
                                   "Metadata", nullptr);
  }
  if (position) {
    sd_bus_emit_signal(bus_.get(), objectPath, playerInterface, "Seeked", "x", *position);
  }
}

bool FakePlayer::isFlooding() const {
  const MutexLock lock(mutex_);
  return isFlooding_;
}

void FakePlayer::wake() const {
  ::eventfd_write(wakeUp_, 1);
}

FakePlayer::Behaviour FakePlayer::behaviour() const {
  const MutexLock lock(mutex_);
  return behaviour_;
}

bool FakePlayer::take(const std::string& command) {
  if (start_.onCommand) start_.onCommand(command);
  const MutexLock lock(mutex_);
  received_.push_back(command);
  if (behaviour_ == Behaviour::fails) return false;
  if (command == "PlayPause") {
    playbackStatus_ = playbackStatus_ == "Playing" ? "Paused" : "Playing";
  } else if (command == "Play") {
    playbackStatus_ = "Playing";
  } else if (command == "Pause") {
    playbackStatus_ = "Paused";
  } else if (command == "Stop") {
    playbackStatus_ = "Stopped";
  } else if (command == "Next") {
    ++track_;
  } else if (command == "Previous" && track_ > 1) {
    --track_;
  }
  return true;
}

}  // namespace talmo::test
