# Queues, threads, timers and clocks; the log; the settings.
target_sources(talmo_linux PRIVATE
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxDelayedWork.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxDispatch.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxGlobalQueue.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxLog.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxMainQueue.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxPlatform.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxQueueThread.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxSemaphore.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxSerialQueue.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxThreads.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxTimer.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxUserDefaults.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxWorkerPool.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LogText.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/SettingsFile.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/TerminationSignals.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/TimerSchedule.cpp)

# The program.
add_executable(talmo ${CMAKE_CURRENT_SOURCE_DIR}/main.cpp)
set_target_properties(talmo PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
target_link_libraries(talmo PRIVATE talmo_program talmo_linux talmo_warnings)
