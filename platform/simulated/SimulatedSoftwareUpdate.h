#pragma once

#include <memory>

#include "platform/SoftwareUpdate.h"

namespace talmo {

/// The update framework of the simulated machine, which is there at first. Main thread.
class SimulatedSoftwareUpdate : public SoftwareUpdate {
 public:
  std::unique_ptr<StandardUpdaterController> makeStandardUpdaterController(
      bool startingUpdater, StandardUserDriverDelegate& userDriverDelegate) override {
    ++made_;
    if (!isInstalled_) return nullptr;
    delegate_ = &userDriverDelegate;
    if (startingUpdater) ++started_;
    return std::make_unique<Controller>(*this);
  }

  /// Takes the framework away, or puts it back.
  void setInstalled(bool isInstalled) { isInstalled_ = isInstalled; }

  /// The person's setting; off at first.
  bool checksAutomatically() const { return checksAutomatically_; }
  void setChecksAutomatically(bool automatically) { checksAutomatically_ = automatically; }

  /// How often an updater was asked for, started and told to check.
  int made() const { return made_; }
  int started() const { return started_; }
  int checks() const { return checks_; }

  /// The delegate of the last updater; none before the first, and after its end.
  StandardUserDriverDelegate* delegate() const { return delegate_; }

 private:
  class Controller : public StandardUpdaterController {
   public:
    explicit Controller(SimulatedSoftwareUpdate& framework) : framework_(framework) {}
    ~Controller() override { framework_.delegate_ = nullptr; }

    bool automaticallyChecksForUpdates() const override { return framework_.checksAutomatically_; }
    void setAutomaticallyChecksForUpdates(bool automatically) override {
      framework_.checksAutomatically_ = automatically;
    }
    void checkForUpdates() override { ++framework_.checks_; }

   private:
    SimulatedSoftwareUpdate& framework_;
  };

  bool isInstalled_ = true;
  bool checksAutomatically_ = false;
  int made_ = 0;
  int started_ = 0;
  int checks_ = 0;
  StandardUserDriverDelegate* delegate_ = nullptr;
};

}  // namespace talmo
