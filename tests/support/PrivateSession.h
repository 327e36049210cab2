#pragma once

#include <memory>
#include <string>

namespace talmo::test {

/// A session manager of the test's own, as desktops have one that asks programs to end at a logout
/// (XSMP). It lets in whoever knows its address. One at a time.
class PrivateSession {
 public:
  /// Throws when programs cannot reach it.
  PrivateSession();
  ~PrivateSession();
  PrivateSession(const PrivateSession&) = delete;
  PrivateSession& operator=(const PrivateSession&) = delete;

  /// The value for SESSION_MANAGER.
  const std::string& address() const { return address_; }

  /// Waits until a program has joined the session; whether one has.
  bool waitForProgram() const;

  /// Asks the programs of the session to save what they have to, and then to end.
  void logOut();

 private:
  class Manager;

  std::unique_ptr<Manager> manager_;
  std::string address_;
};

}  // namespace talmo::test
