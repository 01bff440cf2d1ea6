// Saving and reading what the board's window shows.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

class QWidget;

namespace tessarine::desktop {

struct FileKind {
  QString title;      // of the dialog
  QString suggested;  // file name
  QString filter;     // as QFileDialog takes it
  QString suffix;     // for names without one
};

struct Saving {
  // The file to save to; empty: none.
  std::function<QString(QWidget& parent, const FileKind& kind)> ask;
  // Tells the operator how it went.
  std::function<void(const QString& text)> tell;
  // The file to read; empty: none.
  std::function<QString(QWidget& parent, const FileKind& kind)> askToOpen;

  void save(QWidget& parent, const FileKind& kind, const QByteArray& bytes) const;
};

[[nodiscard]] QString askWithDialog(QWidget& parent, const FileKind& kind);
[[nodiscard]] QString askToOpenWithDialog(QWidget& parent, const FileKind& kind);

}  // namespace tessarine::desktop
