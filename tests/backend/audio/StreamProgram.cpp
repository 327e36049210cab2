// Plays silence to the sound server of PULSE_SERVER and says so.
//
//     talmo-test-stream [STREAMS]            plays that many streams, one when it is not said
//     talmo-test-stream --start PROGRAM...   starts a program and waits for it
//
// SIGUSR1 corks all streams, SIGUSR2 takes that back, SIGHUP mutes them. Each change is a line on
// the output: "playing PROCESS", then "corked", "uncorked" and "muted".

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <pulse/pulseaudio.h>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

struct Player {
  std::size_t count = 1;
  pa_context* context = nullptr;
  std::vector<pa_stream*> streams;
  std::size_t pending = 0;
  const char* saying = "";
};

void say(const std::string& line) {
  std::cout << line << std::endl;
}

void report(Player& player) {
  if (--player.pending == 0) say(player.saying);
}

void reportStream(pa_stream*, int, void* data) {
  report(*static_cast<Player*>(data));
}

void reportContext(pa_context*, int, void* data) {
  report(*static_cast<Player*>(data));
}

void fill(pa_stream* stream, std::size_t bytes, void*) {
  const std::vector<char> silence(bytes, 0);
  pa_stream_write(stream, silence.data(), silence.size(), nullptr, 0, PA_SEEK_RELATIVE);
}

void streamChanged(pa_stream* stream, void* data) {
  Player& player = *static_cast<Player*>(data);
  if (pa_stream_get_state(stream) == PA_STREAM_READY && --player.pending == 0) {
    say("playing " + std::to_string(::getpid()));
  }
  if (pa_stream_get_state(stream) == PA_STREAM_FAILED) std::_Exit(1);
}

void contextChanged(pa_context* context, void* data) {
  Player& player = *static_cast<Player*>(data);
  const pa_context_state_t state = pa_context_get_state(context);
  if (!PA_CONTEXT_IS_GOOD(state)) std::_Exit(1);
  if (state != PA_CONTEXT_READY) return;
  const pa_sample_spec format{.format = PA_SAMPLE_S16LE, .rate = 8000, .channels = 1};
  player.pending = player.count;
  for (std::size_t i = 0; i < player.count; ++i) {
    pa_stream* stream = pa_stream_new(context, "silence", &format, nullptr);
    pa_stream_set_write_callback(stream, fill, nullptr);
    pa_stream_set_state_callback(stream, streamChanged, &player);
    pa_stream_connect_playback(stream, nullptr, nullptr, PA_STREAM_NOFLAGS, nullptr, nullptr);
    player.streams.push_back(stream);
  }
}

void signalled(pa_mainloop_api*, pa_signal_event*, int number, void* data) {
  Player& player = *static_cast<Player*>(data);
  player.pending = player.streams.size();
  player.saying = number == SIGUSR1 ? "corked" : number == SIGUSR2 ? "uncorked" : "muted";
  for (pa_stream* stream : player.streams) {
    pa_operation* operation =
        number == SIGHUP
            ? pa_context_set_sink_input_mute(player.context, pa_stream_get_index(stream), 1,
                                             reportContext, &player)
            : pa_stream_cork(stream, number == SIGUSR1 ? 1 : 0, reportStream, &player);
    if (operation != nullptr) pa_operation_unref(operation);
  }
}

int start(char** arguments) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::execv(arguments[0], arguments);
    ::_exit(127);
  }
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return status == 0 ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  if (count > 2 && arguments[1] == std::string_view("--start")) return start(arguments + 2);
  Player player;
  if (count > 1) player.count = std::stoul(arguments[1]);
  pa_mainloop* loop = pa_mainloop_new();
  pa_mainloop_api* api = pa_mainloop_get_api(loop);
  pa_signal_init(api);
  for (const int number : {SIGUSR1, SIGUSR2, SIGHUP}) pa_signal_new(number, signalled, &player);
  player.context = pa_context_new(api, "talmo-test-stream");
  pa_context_set_state_callback(player.context, contextChanged, &player);
  if (pa_context_connect(player.context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) return 1;
  int result = 0;
  pa_mainloop_run(loop, &result);
  return result;
}
