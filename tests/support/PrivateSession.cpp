#include "tests/support/PrivateSession.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <poll.h>
#include <stdexcept>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>
#include <vector>
#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>
#include <X11/SM/SMlib.h>

#include "platform/linux/FileDescriptor.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {

/// The library knows no locks, so that all but its beginning happens on one thread.
class PrivateSession::Manager {
 public:
  Manager() : request_(::eventfd(0, EFD_CLOEXEC)) {
    std::array<char, 256> error{};
    constexpr int errorLength = error.size();
    // Programs that break off are no reason for the test to end.
    IceSetIOErrorHandler([](IceConn) {});
    const auto letIn = [](char*) -> int { return 1; };
    if (SmsInitialize("talmo-test", "1", accept, this, letIn, errorLength, error.data()) == 0 ||
        IceListenForConnections(&doorCount_, &doors_, errorLength, error.data()) == 0) {
      throw std::runtime_error(std::string("no session manager: ") + error.data());
    }
    for (int index = 0; index < doorCount_; ++index) {
      IceSetHostBasedAuthProc(doors_[index], letIn);
    }
    thread_ = std::thread([this] { run(); });
  }

  ~Manager() {
    isEnding_ = true;
    wakeUp();
    thread_.join();
    IceFreeListenObjs(doorCount_, doors_);
  }

  Manager(const Manager&) = delete;
  Manager& operator=(const Manager&) = delete;

  std::string address() const {
    const std::unique_ptr<char, decltype(&::free)> text(IceComposeNetworkIdList(doorCount_, doors_),
                                                        &::free);
    return text ? text.get() : "";
  }

  bool hasProgram() const { return programCount_ > 0; }

  void logOut() {
    isLoggingOut_ = true;
    wakeUp();
  }

 private:
  void wakeUp() const {
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t ignored = ::write(request_.get(), &one, sizeof one);
  }

  void run() {
    while (true) {
      std::vector<pollfd> descriptors{{.fd = request_.get(), .events = POLLIN, .revents = 0}};
      for (int index = 0; index < doorCount_; ++index) {
        descriptors.push_back(
            {.fd = IceGetListenConnectionNumber(doors_[index]), .events = POLLIN, .revents = 0});
      }
      const std::vector<IceConn> connections = connections_;
      for (IceConn connection : connections) {
        descriptors.push_back(
            {.fd = IceConnectionNumber(connection), .events = POLLIN, .revents = 0});
      }
      ::poll(descriptors.data(), descriptors.size(), -1);
      if (isEnding_) break;
      if (descriptors[0].revents != 0) askToSave();
      std::size_t next = 1;
      for (int index = 0; index < doorCount_; ++index) {
        if (descriptors[next++].revents != 0) open(doors_[index]);
      }
      for (IceConn connection : connections) {
        if (descriptors[next++].revents != 0) serve(connection);
      }
    }
    while (!connections_.empty()) close(connections_.front());
  }

  void open(IceListenObj door) {
    IceAcceptStatus status{};
    IceConn connection = IceAcceptConnection(door, &status);
    if (connection == nullptr) return;
    connections_.push_back(connection);
    while (IceConnectionStatus(connection) == IceConnectPending) {
      IceProcessMessages(connection, nullptr, nullptr);
    }
    if (IceConnectionStatus(connection) != IceConnectAccepted) close(connection);
  }

  void serve(IceConn connection) {
    if (IceProcessMessages(connection, nullptr, nullptr) == IceProcessMessagesIOError) {
      close(connection);
    }
  }

  void close(IceConn connection) {
    std::erase(connections_, connection);
    std::erase_if(programs_,
                  [&](SmsConn program) { return SmsGetIceConnection(program) == connection; });
    IceSetShutdownNegotiation(connection, 0);
    IceCloseConnection(connection);
  }

  void askToSave() {
    std::uint64_t ignored = 0;
    [[maybe_unused]] const ssize_t size = ::read(request_.get(), &ignored, sizeof ignored);
    for (SmsConn program : programs_) {
      SmsSaveYourself(program, SmSaveBoth, 1, SmInteractStyleAny, 0);
    }
  }

  /// A program wants to join.
  static int accept(SmsConn /*program*/, SmPointer self, unsigned long* mask,
                    SmsCallbacks* callbacks, char** /*failure*/) {
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
            SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
            SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    *callbacks = {};
    callbacks->register_client = {registerProgram, self};
    callbacks->interact_request.callback = [](SmsConn asking, SmPointer, int) {
      SmsInteract(asking);
    };
    callbacks->interact_done.callback = [](SmsConn, SmPointer, int) {};
    callbacks->save_yourself_request.callback = [](SmsConn, SmPointer, int, int, int, int, int) {};
    callbacks->save_yourself_phase2_request.callback = [](SmsConn asking, SmPointer) {
      SmsSaveYourselfPhase2(asking);
    };
    callbacks->save_yourself_done = {hasSaved, self};
    callbacks->close_connection = {hasLeft, self};
    callbacks->set_properties.callback = [](SmsConn, SmPointer, int count, SmProp** properties) {
      for (int index = 0; index < count; ++index) SmFreeProperty(properties[index]);
      ::free(properties);
    };
    callbacks->delete_properties.callback = [](SmsConn, SmPointer, int count, char** names) {
      for (int index = 0; index < count; ++index) ::free(names[index]);
      ::free(names);
    };
    callbacks->get_properties.callback = [](SmsConn asking, SmPointer) {
      SmsReturnProperties(asking, 0, nullptr);
    };
    return 1;
  }

  static int registerProgram(SmsConn program, SmPointer self, char* previousID) {
    // The manager knows no earlier session.
    if (previousID != nullptr) {
      ::free(previousID);
      return 0;
    }
    const std::unique_ptr<char, decltype(&::free)> id(SmsGenerateClientID(program), &::free);
    SmsRegisterClientReply(program, id.get());
    SmsSaveYourself(program, SmSaveLocal, 0, SmInteractStyleNone, 0);
    auto& manager = *static_cast<Manager*>(self);
    manager.programs_.push_back(program);
    return 1;
  }

  static void hasSaved(SmsConn program, SmPointer self, int /*hasSucceeded*/) {
    auto& manager = *static_cast<Manager*>(self);
    if (manager.isLoggingOut_) {
      SmsDie(program);
    } else {
      SmsSaveComplete(program);
      ++manager.programCount_;
    }
  }

  static void hasLeft(SmsConn program, SmPointer self, int count, char** reasons) {
    SmFreeReasons(count, reasons);
    IceConn connection = SmsGetIceConnection(program);
    auto& manager = *static_cast<Manager*>(self);
    std::erase(manager.programs_, program);
    SmsCleanUp(program);
    manager.close(connection);
  }

  // Readable when something else is asked for than what a program says.
  FileDescriptor request_;
  std::atomic<bool> isEnding_ = false;
  std::atomic<bool> isLoggingOut_ = false;
  // How many have joined so far.
  std::atomic<int> programCount_ = 0;
  int doorCount_ = 0;
  IceListenObj* doors_ = nullptr;
  std::vector<IceConn> connections_;
  std::vector<SmsConn> programs_;
  std::thread thread_;
};

PrivateSession::PrivateSession()
    : manager_(std::make_unique<Manager>()), address_(manager_->address()) {}

PrivateSession::~PrivateSession() = default;

bool PrivateSession::waitForProgram() const {
  return waitUntil([this] { return manager_->hasProgram(); }, std::chrono::seconds(20));
}

void PrivateSession::logOut() {
  manager_->logOut();
}

}  // namespace talmo::test
