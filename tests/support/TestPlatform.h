#pragma once

#include <cstdio>
#include <cstdlib>

#include "platform/Platform.h"
#include "platform/simulated/SimulatedLog.h"

namespace talmo::test {

/// The platform of a test of single services: a log that records, and whichever services the test
/// lends it. It is the platform in use for as long as it lives; asking it for a service that it was
/// not lent ends the test.
class TestPlatform : public Platform {
 public:
  struct Services {
    Accessibility* accessibility = nullptr;
    AppleEvents* appleEvents = nullptr;
    Application* application = nullptr;
    AudioObjects* audioObjects = nullptr;
    Bundle* bundle = nullptr;
    ChildProcesses* childProcesses = nullptr;
    Dispatch* dispatch = nullptr;
    Notifications* distributedNotifications = nullptr;
    EventMonitors* eventMonitors = nullptr;
    EventTap* eventTap = nullptr;
    ImageDecoder* imageDecoder = nullptr;
    KeyEvents* keyEvents = nullptr;
    LoginItem* loginItem = nullptr;
    MediaRemote* mediaRemote = nullptr;
    Network* network = nullptr;
    Notifications* notifications = nullptr;
    Panels* panels = nullptr;
    SoftwareUpdate* softwareUpdate = nullptr;
    StatusBar* statusBar = nullptr;
    UserDefaults* userDefaults = nullptr;
    Windows* windows = nullptr;
    Wording* wording = nullptr;
    Workspace* workspace = nullptr;
    Notifications* workspaceNotifications = nullptr;
  };

  TestPlatform() : TestPlatform(Services{}) {}
  explicit TestPlatform(const Services& services) : services_(services) { setPlatform(this); }
  ~TestPlatform() override { setPlatform(nullptr); }

  Accessibility& accessibility() override { return lent(services_.accessibility, "accessibility"); }
  AppleEvents& appleEvents() override { return lent(services_.appleEvents, "Apple events"); }
  Application& application() override { return lent(services_.application, "the application"); }
  AudioObjects& audioObjects() override { return lent(services_.audioObjects, "audio objects"); }
  Bundle& bundle() override { return lent(services_.bundle, "the bundle"); }
  ChildProcesses& childProcesses() override {
    return lent(services_.childProcesses, "child processes");
  }
  Dispatch& dispatch() override { return lent(services_.dispatch, "dispatch"); }
  Notifications& distributedNotifications() override {
    return lent(services_.distributedNotifications, "distributed notifications");
  }
  EventMonitors& eventMonitors() override {
    return lent(services_.eventMonitors, "event monitors");
  }
  EventTap& eventTap() override { return lent(services_.eventTap, "the event tap"); }
  ImageDecoder& imageDecoder() override {
    return lent(services_.imageDecoder, "the image decoder");
  }
  KeyEvents& keyEvents() override { return lent(services_.keyEvents, "key events"); }
  SimulatedLog& log() override { return log_; }
  LoginItem& loginItem() override { return lent(services_.loginItem, "the login item"); }
  MediaRemote& mediaRemote() override { return lent(services_.mediaRemote, "media remote"); }
  Network& network() override { return lent(services_.network, "network"); }
  Notifications& notifications() override { return lent(services_.notifications, "notifications"); }
  Panels& panels() override { return lent(services_.panels, "panels"); }
  SoftwareUpdate& softwareUpdate() override {
    return lent(services_.softwareUpdate, "software update");
  }
  StatusBar& statusBar() override { return lent(services_.statusBar, "the status bar"); }
  UserDefaults& userDefaults() override { return lent(services_.userDefaults, "user defaults"); }
  Windows& windows() override { return lent(services_.windows, "windows"); }
  Wording& wording() override { return lent(services_.wording, "wording"); }
  Workspace& workspace() override { return lent(services_.workspace, "the workspace"); }
  Notifications& workspaceNotifications() override {
    return lent(services_.workspaceNotifications, "workspace notifications");
  }

 private:
  template <class Service>
  static Service& lent(Service* service, const char* name) {
    if (service == nullptr) {
      std::fprintf(stderr, "this test's platform has no %s\n", name);
      std::abort();
    }
    return *service;
  }

  const Services services_;
  SimulatedLog log_;
};

}  // namespace talmo::test
