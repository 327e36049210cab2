#include "platform/linux/processes/ChildLauncher.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

#include "platform/linux/processes/Pidfd.h"

namespace talmo {
namespace {

constexpr const char* nullDevice = "/dev/null";

/// What posix_spawn(3) does between the fork and the program. Its parts fail for want of memory
/// only, and then the program is not started.
class Preparations {
 public:
  Preparations(const FileDescriptor& output, const FileDescriptor& error) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawnattr_init(&attributes_);
    note(::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, nullDevice, O_RDONLY, 0));
    connect(output, STDOUT_FILENO);
    connect(error, STDERR_FILENO);
    note(::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1));

    sigset_t signals;
    ::sigemptyset(&signals);
    note(::posix_spawnattr_setsigmask(&attributes_, &signals));
    ::sigfillset(&signals);
    note(::posix_spawnattr_setsigdefault(&attributes_, &signals));
    note(::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
  }
  ~Preparations() {
    ::posix_spawn_file_actions_destroy(&actions_);
    ::posix_spawnattr_destroy(&attributes_);
  }
  Preparations(const Preparations&) = delete;
  Preparations& operator=(const Preparations&) = delete;

  /// Returns an error number, or zero.
  int spawn(pid_t& process, const char* program, char* const* arguments) const {
    if (error_ != 0) return error_;
    return ::posix_spawn(&process, program, &actions_, &attributes_, arguments, ::environ);
  }

 private:
  void connect(const FileDescriptor& from, int target) {
    note(from ? ::posix_spawn_file_actions_adddup2(&actions_, from.get(), target)
              : ::posix_spawn_file_actions_addopen(&actions_, target, nullDevice, O_WRONLY, 0));
  }
  void note(int error) {
    if (error != 0) error_ = error;
  }

  posix_spawn_file_actions_t actions_;
  posix_spawnattr_t attributes_;
  int error_ = 0;
};

std::string words(int error) {
  return std::generic_category().message(error);
}

}  // namespace

std::variant<FileDescriptor, std::string> launchChild(const ChildProcessParameters& parameters,
                                                      const FileDescriptor& output,
                                                      const FileDescriptor& error) {
  std::vector<std::string> texts{parameters.executable};
  texts.insert(texts.end(), parameters.arguments.begin(), parameters.arguments.end());
  std::vector<char*> arguments;
  arguments.reserve(texts.size() + 1);
  for (std::string& text : texts) arguments.push_back(text.data());
  arguments.push_back(nullptr);

  const Preparations preparations(output, error);
  pid_t process = -1;
  if (const int number =
          preparations.spawn(process, parameters.executable.c_str(), arguments.data())) {
    return words(number);
  }
  // The number is the child's own until it has been reaped, which only happens through this.
  FileDescriptor descriptor(::pidfd_open(process, 0));
  if (descriptor) return descriptor;
  const int number = errno;
  ::kill(process, SIGKILL);
  while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
  }
  return words(number);
}

}  // namespace talmo
