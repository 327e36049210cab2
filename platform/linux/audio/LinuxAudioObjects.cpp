#include "platform/linux/audio/LinuxAudioObjects.h"

#include <algorithm>
#include <utility>

#include "platform/linux/applications/LinuxApplications.h"
#include "platform/linux/applications/ProcessTable.h"

namespace talmo {
namespace {

// The streams follow the system object.
constexpr AudioObjects::Object firstStream = AudioObjects::systemObject + 1;
// kAudioHardwareUnknownPropertyError, 'who?' (AudioHardwareBase.h).
constexpr std::int32_t unknownProperty = 0x77686F3F;
// More generations than any tree of processes has; the table may change under the walk.
constexpr int mostGenerations = 64;

bool isList(AudioObjects::Object object, AudioObjects::Selector selector) {
  return object == AudioObjects::systemObject && selector == AudioObjects::processObjectList;
}

const LinuxApplication* applicationOf(ProcessIdentifier process) {
  const std::string executable = ProcessTable::executable(process);
  return executable.empty() ? nullptr : LinuxApplications::withExecutable(executable);
}

/// A sandbox numbers its processes anew, so the number may be somebody else's, or nobody's.
bool isOurs(const SoundStream& stream) {
  return stream.process && ProcessTable::isOurs(*stream.process);
}

}  // namespace

AudioResult<std::uint32_t> LinuxAudioObjects::dataSize(Object object, Selector selector) {
  if (!isList(object, selector)) return {.status = unknownProperty};
  AudioResult<std::vector<SoundStream>> taken = server_.streams();
  streams_ = std::move(taken.value);
  return {.status = taken.status,
          .value = static_cast<std::uint32_t>(streams_.size() * sizeof(Object))};
}

AudioResult<std::vector<AudioObjects::Object>> LinuxAudioObjects::objects(Object object,
                                                                          Selector selector,
                                                                          std::uint32_t size) {
  if (!isList(object, selector)) return {.status = unknownProperty};
  std::vector<Object> list(std::min(streams_.size(), size / sizeof(Object)));
  std::ranges::generate(list, [next = firstStream]() mutable { return next++; });
  return {.value = std::move(list)};
}

bool LinuxAudioObjects::hasProperty(Object object, Selector selector) {
  return isList(object, selector) || numberOf(object, selector) || bundleOf(object, selector);
}

AudioResult<std::uint32_t> LinuxAudioObjects::number(Object object, Selector selector) {
  const std::optional<std::uint32_t> value = numberOf(object, selector);
  if (!value) return {.status = unknownProperty};
  return {.value = *value};
}

AudioResult<std::string> LinuxAudioObjects::string(Object object, Selector selector) {
  std::optional<std::string> value = bundleOf(object, selector);
  if (!value) return {.status = unknownProperty};
  return {.value = *std::move(value)};
}

ProcessIdentifier LinuxAudioObjects::responsibleProcess(ProcessIdentifier process) {
  const LinuxApplication* application = nullptr;
  ProcessIdentifier responsible = process;
  ProcessIdentifier ancestor = process;
  for (int generation = 0; generation < mostGenerations && ancestor > 1; ++generation) {
    const LinuxApplication* found = applicationOf(ancestor);
    // What started the application, a browser its download for instance, does not sound.
    if (application != nullptr && found != application) break;
    if (found != nullptr) {
      application = found;
      responsible = ancestor;
    }
    ancestor = ProcessTable::parent(ancestor);
  }
  return responsible;
}

const SoundStream* LinuxAudioObjects::stream(Object object) const {
  if (object < firstStream || object - firstStream >= streams_.size()) return nullptr;
  return &streams_[object - firstStream];
}

std::optional<std::uint32_t> LinuxAudioObjects::numberOf(Object object, Selector selector) const {
  const SoundStream* found = stream(object);
  if (found == nullptr) return std::nullopt;
  if (selector == processIsRunningOutput) return found->isPlaying ? 1 : 0;
  if (selector == processPID && isOurs(*found)) return static_cast<std::uint32_t>(*found->process);
  return std::nullopt;
}

std::optional<std::string> LinuxAudioObjects::bundleOf(Object object, Selector selector) const {
  const SoundStream* found = stream(object);
  if (found == nullptr || selector != processBundleID) return std::nullopt;
  // In a sandbox the name of the program still says which application it is.
  const LinuxApplication* application = isOurs(*found)
                                            ? applicationOf(*found->process)
                                            : LinuxApplications::withExecutable(found->executable);
  if (application == nullptr) return std::nullopt;
  return std::string(application->bundleID);
}

}  // namespace talmo
