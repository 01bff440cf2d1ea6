// Lists of directories and files. The rows are read from the model as they are shown, so that a list of tens
// of thousands opens at once.
#include <QAbstractListModel>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

#include "desktop/ControlWidget.h"
#include "desktop/Style.h"
#include "forms/FileControls.h"

namespace tessarine::desktop {

using forms::Aspect;

namespace {

class Rows : public QAbstractListModel {
 public:
  explicit Rows(forms::ListControl& list) : list_(list) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(list_.List.get().size());
  }

  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    const auto& texts = list_.List.get();
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= texts.size() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    return toQt(texts[row]);
  }

  void reset() {
    beginResetModel();
    endResetModel();
  }

 private:
  forms::ListControl& list_;
};

// Rows with some air around their texts.
class AiryRows : public QStyledItemDelegate {
 public:
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, option.fontMetrics.height() / 3);
  }
};

// Directories with a folder in front, each level a step further right.
class DirectoryRows : public AiryRows {
 public:
  explicit DirectoryRows(const forms::DirListBox& directories) : directories_(directories) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    AiryRows::initStyleOption(option, index);
    const int step = option->fontMetrics.height();
    option->rect.setLeft(option->rect.left() + std::min(index.row(), directories_.depth()) * step / 2);
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = QSize(step, step);
    option->icon = folder(*option, index.row() < directories_.depth());
  }

 private:
  static QIcon folder(const QStyleOptionViewItem& option, bool open) {
    const int side = option.decorationSize.width();
    const double scale = option.widget ? option.widget->devicePixelRatioF() : 1;
    QPixmap picture(QSizeF(side * scale, side * scale).toSize());
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const Tones tones(option.palette);
    const auto at = [side](double x, double y, double w, double h) {
      return QRectF(side * x, side * y, side * w, side * h);
    };
    const QColor fill = open ? tones.tint : tones.card;
    drawBox(painter, at(0.1, 0.2, 0.4, 0.3), 1, fill, tones.accent);
    drawBox(painter, at(0.1, 0.32, 0.8, 0.48), 1.5, fill, tones.accent);
    return QIcon(picture);
  }

  const forms::DirListBox& directories_;
};

class ItemList : public QListView, public ControlWidget {
 public:
  ItemList(forms::ListControl& list, QWidget& parent, Hands& hands)
      : QListView(&parent), list_(list), hands_(hands), rows_(list) {
    setModel(&rows_);
    setItemDelegate(&airy_);
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QAbstractItemView::doubleClicked, this, [this] { hands_.doubleClick(list_); });
  }

  QWidget& widget() override { return *this; }

  void take(Aspect aspect) override {
    const QScopedValueRollback following(following_, true);
    if (aspect == Aspect::List) rows_.reset();
    if (aspect == Aspect::List || aspect == Aspect::ListIndex) {
      setCurrentIndex(rows_.index(list_.ListIndex));
    }
  }

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override {
    QListView::currentChanged(current, previous);
    if (following_ || !current.isValid()) return;
    clickToHandOver_ = false;
    hands_.pick(list_, current.row());
  }

  // A click on the row that is the current one already counts as well.
  void mousePressEvent(QMouseEvent* event) override {
    clickToHandOver_ = event->button() == Qt::LeftButton;
    QListView::mousePressEvent(event);
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    QListView::mouseReleaseEvent(event);
    const QModelIndex row = indexAt(event->position().toPoint());
    if (std::exchange(clickToHandOver_, false) && row.isValid()) hands_.pick(list_, row.row());
  }

  // Enter goes into a directory; in other lists it is the window's.
  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) {
      QListView::keyPressEvent(event);
    } else if (list_.kind() == forms::Kind::DirListBox) {
      hands_.doubleClick(list_);
    } else {
      event->ignore();
    }
  }

 private:
  forms::ListControl& list_;
  Hands& hands_;
  Rows rows_;
  AiryRows airy_;
  bool following_ = false;        // the list shows what the model did
  bool clickToHandOver_ = false;  // the mouse is down and no row has been picked by that
};

class DirectoryList : public ItemList {
 public:
  DirectoryList(forms::DirListBox& directories, QWidget& parent, Hands& hands)
      : ItemList(directories, parent, hands), delegate_(directories) {
    setItemDelegate(&delegate_);
  }

 private:
  DirectoryRows delegate_;
};

}  // namespace

std::unique_ptr<ControlWidget> makeItemList(forms::ListControl& list, QWidget& parent, Hands& hands) {
  if (list.kind() == forms::Kind::DirListBox) {
    return std::make_unique<DirectoryList>(static_cast<forms::DirListBox&>(list), parent, hands);
  }
  return std::make_unique<ItemList>(list, parent, hands);
}

}  // namespace tessarine::desktop
