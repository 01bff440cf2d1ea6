#include "desktop/board/ScriptView.h"

#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QVBoxLayout>
#include <utility>

#include "desktop/Style.h"

namespace tessarine::desktop {

namespace {

constexpr qint64 kMostBytes = 64 << 20;
const QColor kRefused(0xD0, 0x40, 0x30, 0x60);  // on light and dark grounds

// Keeps the end in sight where it was.
void setTextBelow(QPlainTextEdit& edit, const QString& text) {
  QScrollBar& bar = *edit.verticalScrollBar();
  const bool atEnd = bar.value() == bar.maximum();
  const QString before = edit.toPlainText();
  if (!before.isEmpty() && text.startsWith(before)) {
    QTextCursor end(edit.document());
    end.movePosition(QTextCursor::End);
    end.insertText(text.mid(before.size()));
  } else {
    const int place = bar.value();
    edit.setPlainText(text);
    bar.setValue(place);
  }
  if (atEnd) bar.setValue(bar.maximum());
}

}  // namespace

ScriptView::ScriptView(ScriptFeed feed, const Saving& saving) : feed_(std::move(feed)), saving_(saving) {
  auto* const column = new QVBoxLayout(this);
  fillBar(*column);
  const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  for (QPlainTextEdit* const edit : {&text_, &printed_}) {
    edit->setReadOnly(true);
    edit->setFont(fixed);
    edit->setTabChangesFocus(true);
  }
  text_.setLineWrapMode(QPlainTextEdit::NoWrap);
  text_.setObjectName(QStringLiteral("scriptText"));
  text_.setAccessibleName(QStringLiteral("Script"));
  printed_.setObjectName(QStringLiteral("scriptPrinted"));
  printed_.setAccessibleName(QStringLiteral("What the script prints"));
  printed_.setPlaceholderText(QStringLiteral("What the script prints"));
  status_.setObjectName(QStringLiteral("scriptStatus"));
  status_.setTextFormat(Qt::PlainText);
  status_.setWordWrap(true);
  column->addWidget(&text_, 3);
  column->addWidget(&printed_, 1);
  auto* const running = new QHBoxLayout;
  running->addWidget(&status_, 1);
  running->addWidget(&run_);
  running->addWidget(&stop_);
  column->addLayout(running);
  showPage(kRecording);
}

void ScriptView::fillBar(QBoxLayout& column) {
  shown_.setObjectName(QStringLiteral("scriptShown"));
  shown_.addItems({QStringLiteral("Recording"), QStringLiteral("Snapshot"), QStringLiteral("Script")});
  showCaption_.setBuddy(&shown_);
  save_.setObjectName(QStringLiteral("saveScript"));
  copy_.setObjectName(QStringLiteral("copyScript"));
  takeSnapshot_.setObjectName(QStringLiteral("takeSnapshot"));
  run_.setObjectName(QStringLiteral("runScript"));
  stop_.setObjectName(QStringLiteral("stopScript"));
  takeSnapshot_.setToolTip(QStringLiteral("A script that brings a fresh program to the present settings"));
  run_.setToolTip(QStringLiteral("Works the windows by a script, from here on"));
  stop_.setEnabled(false);
  auto* const bar = new QHBoxLayout;
  bar->addWidget(&showCaption_);
  bar->addWidget(&shown_);
  bar->addWidget(&takeSnapshot_);
  bar->addStretch(1);
  bar->addWidget(&save_);
  bar->addWidget(&copy_);
  column.addLayout(bar);

  connect(&shown_, &QComboBox::activated, this, [this](int page) {
    if (page == kSnapshot && snapshot_.isEmpty()) return takeSnapshot();
    showPage(static_cast<Page>(page));
  });
  connect(&takeSnapshot_, &QPushButton::clicked, this, [this] { takeSnapshot(); });
  connect(&save_, &QPushButton::clicked, this, [this] { save(); });
  connect(&copy_, &QPushButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(text_.toPlainText()); });
  connect(&run_, &QPushButton::clicked, this, [this] { askAndRun(); });
  connect(&stop_, &QPushButton::clicked, this, [this] {
    stopped_ = true;
    text_.setFocus();
    stop_.setEnabled(false);
    status_.setText(QStringLiteral("%1 stops: line %2 is still at work").arg(scriptName_).arg(line_));
  });
}

void ScriptView::take(const board::EvaluationBoard& /*board*/, std::optional<double> /*askedMHz*/) {
  if (isUpToDate()) return;
  shownVersion_ = feed_.version();
  recording_ = QString::fromStdString(feed_.recording());
  if (shown_.currentIndex() == kRecording) setTextBelow(text_, recording_);
}

bool ScriptView::isUpToDate() const { return shownVersion_ == feed_.version(); }

void ScriptView::showPage(Page page) {
  shown_.setCurrentIndex(page);
  text_.setExtraSelections({});
  text_.setPlainText(page == kRecording ? recording_ : page == kSnapshot ? snapshot_ : script_);
  if (page == kRecording) text_.verticalScrollBar()->setValue(text_.verticalScrollBar()->maximum());
  printed_.setVisible(page == kScript);
}

void ScriptView::takeSnapshot() {
  snapshot_ = QString::fromStdString(feed_.snapshot());
  showPage(kSnapshot);
}

void ScriptView::save() {
  const bool isRecording = shown_.currentIndex() == kRecording;
  const QString name = shown_.currentIndex() == kScript ? scriptName_
                       : isRecording                    ? QStringLiteral("session.script")
                                                        : QStringLiteral("snapshot.script");
  saving_.save(*this,
               {QStringLiteral("Save the script"), name, QStringLiteral("Script (*.script)"),
                QStringLiteral("script")},
               text_.toPlainText().toUtf8());
}

// -------------------------------------------------------------------------------------------------- Running

void ScriptView::askAndRun() {
  const QString path = saving_.askToOpen(
      *this,
      {QStringLiteral("Run a script"), QString(), QStringLiteral("Script (*.script);;All files (*)"), {}});
  if (!path.isEmpty()) run(path);
}

void ScriptView::run(const QString& path) {
  if (running_) return;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || file.size() > kMostBytes) {
    const QString why = file.isOpen() ? QStringLiteral("it is larger than 64 MB") : file.errorString();
    return saving_.tell(QStringLiteral("Could not read %1: %2").arg(path, why));
  }
  const QByteArray bytes = file.readAll();
  script_ = QString::fromUtf8(bytes);
  scriptName_ = QFileInfo(path).fileName();
  printed_.clear();
  line_ = 0;
  stopped_ = false;
  running_ = true;
  showPage(kScript);
  // The keyboard goes from one button to the other, never on to what makes the board faulty.
  stop_.setEnabled(true);
  if (window()->focusWidget() == &run_) stop_.setFocus();
  run_.setEnabled(false);
  const ScriptEnd end = feed_.run(bytes.toStdString(), scriptName_.toStdString(), *this);
  running_ = false;
  run_.setEnabled(true);
  if (window()->focusWidget() == &stop_) run_.setFocus();
  stop_.setEnabled(false);
  showEnd(end);
}

void ScriptView::showEnd(ScriptEnd end) {
  if (end == ScriptEnd::refused) {
    status_.setText(complaint_);
    mark(line_, kRefused);
  } else if (stopped_) {
    status_.setText(QStringLiteral("%1 was stopped at line %2").arg(scriptName_).arg(line_));
  } else {
    status_.setText(end == ScriptEnd::done
                        ? QStringLiteral("%1 is done").arg(scriptName_)
                        : QStringLiteral("%1 is done; not all was as expected").arg(scriptName_));
    mark(0, {});
  }
}

void ScriptView::comesTo(int line) {
  line_ = line;
  const auto lines = script_.count(QLatin1Char('\n')) + (script_.endsWith(QLatin1Char('\n')) ? 0 : 1);
  status_.setText(QStringLiteral("%1, line %2 of %3").arg(scriptName_).arg(line).arg(lines));
  mark(line, Tones(palette()).tint);
}

// 0: none.
void ScriptView::mark(int line, const QColor& colour) {
  if (shown_.currentIndex() != kScript) return;
  const QTextBlock block = text_.document()->findBlockByNumber(line - 1);
  if (!block.isValid()) return text_.setExtraSelections({});
  QTextEdit::ExtraSelection selection;
  selection.cursor = QTextCursor(block);
  selection.format.setBackground(colour);
  selection.format.setProperty(QTextFormat::FullWidthSelection, true);
  text_.setTextCursor(selection.cursor);
  text_.ensureCursorVisible();
  text_.setExtraSelections({selection});
}

void ScriptView::prints(const std::string& text) {
  printed_.appendPlainText(QString::fromStdString(text).chopped(text.ends_with('\n') ? 1 : 0));
}

void ScriptView::complains(const std::string& text) {
  prints(text);
  complaint_ = QString::fromStdString(text).trimmed();
}

}  // namespace tessarine::desktop
