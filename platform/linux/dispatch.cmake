# Queues, threads, timers and clocks; the log; the settings.
target_sources(talmo_linux PRIVATE
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxDelayedWork.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxDispatch.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxGlobalQueue.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxLog.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxMainQueue.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxSemaphore.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxSerialQueue.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxThreads.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxTimer.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxUserDefaults.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxWorkerPool.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LogText.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/SettingsFile.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/TimerSchedule.cpp)
