#pragma once

#include <string>

#include "platform/linux/FileDescriptor.h"

namespace talmo::test {

/// A port on the loopback interface where connections are taken, and nothing is said.
class Listener {
 public:
  /// Throws when there is no port.
  Listener();

  int port() const { return port_; }
  int descriptor() const { return socket_.get(); }

  /// Whether somebody has connected who has not been accepted.
  bool isAsked() const;

  /// Waits for a connection.
  FileDescriptor accept() const;

 private:
  FileDescriptor socket_;
  int port_ = 0;
};

/// A connection to a port on the loopback interface; none when nobody listens there.
FileDescriptor connectToPort(int port);

}  // namespace talmo::test
