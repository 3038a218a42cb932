#include "panel/SingleInstance.h"

#include <QApplication>
#include <QLocalSocket>
#include <QMainWindow>
#include <QStandardPaths>
#include <chrono>

namespace touchpanel {

namespace {

constexpr char kToken[] = "XDG_ACTIVATION_TOKEN";
constexpr int kAttempts = 10;
constexpr std::chrono::milliseconds kBetweenAttempts{100};
/// The first instance may be waiting for a touchscreen, and answers then later; that it listens is enough.
constexpr int kAnswerMs = 1000;
constexpr int kConnectMs = 100;
constexpr qint64 kLongestToken = 1024;

/// The display in the letters of a file name.
QString displayName() {
  const bool isWayland = QGuiApplication::platformName().startsWith("wayland");
  auto name =
      QGuiApplication::platformName() + qEnvironmentVariable(isWayland ? "WAYLAND_DISPLAY" : "DISPLAY");
  for (auto& character : name)
    if (!character.isLetterOrNumber()) character = '_';
  return name.right(40);
}

/// The window that the user has to do with: an alert or a sheet, a calibration, else the main window.
QWidget* frontWindow() {
  if (auto* modal = QApplication::activeModalWidget()) return modal;
  QWidget* found = nullptr;
  for (auto* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible()) continue;
    if (window->isFullScreen()) return window;
    if (qobject_cast<QMainWindow*>(window) != nullptr) found = window;
  }
  return found;
}

void bringToFront(const QByteArray& token) {
  auto* window = frontWindow();
  if (window == nullptr) return;
  // Where Qt looks for it when a window asks a Wayland compositor to be activated.
  if (!token.isEmpty()) qputenv(kToken, token);
  window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
  window->raise();
  window->activateWindow();
}

}  // namespace

QByteArray activationToken() {
  const auto token = qgetenv(kToken);
  return token.isEmpty() ? qgetenv("DESKTOP_STARTUP_ID") : token;
}

SingleInstance::SingleInstance(const QString& program, const QByteArray& token) {
  const auto directory = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (directory.isEmpty()) return;
  place_ = directory + '/' + program + '-' + displayName();
  lock_ = std::make_unique<QLockFile>(place_ + ".lock");
  lock_->setStaleLockTime(0);  // held as long as the process lives, however long
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (lock_->tryLock(kBetweenAttempts)) {
      listen();
      return;
    }
    if (lock_->error() != QLockFile::LockFailedError) return;
    isFirst_ = !handOver(token);
    if (!isFirst_) return;
  }
}

void SingleInstance::listen() {
  const auto socket = place_ + ".socket";
  QLocalServer::removeServer(socket);  // of one that crashed
  QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { answer(); });
  server_.listen(socket);
}

void SingleInstance::answer() {
  auto* client = server_.nextPendingConnection();
  QObject::connect(client, &QLocalSocket::disconnected, client, &QObject::deleteLater);
  const auto read = [client] {
    if (!client->canReadLine()) return;
    bringToFront(client->readLine(kLongestToken).trimmed());
    client->write("\n");
  };
  QObject::connect(client, &QLocalSocket::readyRead, client, read);
  read();
}

bool SingleInstance::handOver(const QByteArray& token) const {
  QLocalSocket first;
  first.connectToServer(place_ + ".socket");
  if (!first.waitForConnected(kConnectMs)) return false;
  first.write(token + '\n');
  first.waitForBytesWritten(kConnectMs);
  // One that is ending hangs up without an answer.
  return first.waitForReadyRead(kAnswerMs) || first.state() == QLocalSocket::ConnectedState;
}

}  // namespace touchpanel
