#pragma once

#include <QByteArray>
#include <QLocalServer>
#include <QLockFile>
#include <QString>
#include <memory>

namespace touchpanel {

/// What the desktop gave this process so that its window may come to the front; empty when it gave nothing. To be
/// asked before there is a QApplication, which takes it out of the environment.
QByteArray activationToken();

/// One instance of a program for each user and display: two panels would fight for the devices. A second one
/// has the first bring its window to the front and is to end with status 0.
///
/// A lock file that names its process decides who is first, so one that crashed is never in the way, nor can two
/// that start at once both be first; a local socket beside it carries the request. Both are in the user's
/// runtime directory. The session bus would need a session bus, which kiosks often lack.
class SingleInstance {
 public:
  /// `program` tells apart what may run side by side. Needs a QApplication that outlives it. Blocks for at most
  /// two seconds, and then only when another instance holds the lock and does not answer.
  SingleInstance(const QString& program, const QByteArray& token);

  /// Also true where this cannot be known: rather two panels than none.
  bool isFirst() const { return isFirst_; }

 private:
  void listen();
  void answer();
  bool handOver(const QByteArray& token) const;

  QString place_;  ///< of lock and socket, without their endings
  std::unique_ptr<QLockFile> lock_;
  QLocalServer server_;
  bool isFirst_ = true;
};

}  // namespace touchpanel
