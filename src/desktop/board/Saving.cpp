#include "desktop/board/Saving.h"

#include <QDir>
#include <QFileDialog>
#include <QSaveFile>
#include <QSettings>

namespace tessarine::desktop {

void Saving::save(QWidget& parent, const FileKind& kind, const QByteArray& bytes) const {
  const QString path = ask(parent, kind);
  if (path.isEmpty()) return;
  // A full disk or a lost folder leaves an older file of this name as it was. What is held back is written
  // first: commit() does not tell that it could not.
  QSaveFile file(path);
  const bool saved =
      file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() && file.commit();
  const QString shown = QDir::toNativeSeparators(path);
  tell(saved ? QStringLiteral("Saved %1").arg(shown)
             : QStringLiteral("Could not save %1: %2").arg(shown, file.errorString()));
}

namespace {

QString askFor(QWidget& parent, const FileKind& kind, QFileDialog::AcceptMode mode) {
  // The dialog would keep its size and its last folders in the operator's home; the program keeps nothing.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
  QFileDialog dialog(&parent, kind.title, QDir::currentPath(), kind.filter);
  dialog.setAcceptMode(mode);
  if (mode == QFileDialog::AcceptOpen) dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setDefaultSuffix(kind.suffix);
  dialog.selectFile(kind.suggested);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace

QString askWithDialog(QWidget& parent, const FileKind& kind) {
  return askFor(parent, kind, QFileDialog::AcceptSave);
}

QString askToOpenWithDialog(QWidget& parent, const FileKind& kind) {
  return askFor(parent, kind, QFileDialog::AcceptOpen);
}

}  // namespace tessarine::desktop
