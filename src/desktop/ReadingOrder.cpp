#include "desktop/ReadingOrder.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessarine::desktop {

namespace {

using Items = std::vector<Placed>;

bool isField(const Placed& item) { return item.control->setting() == forms::Setting::byValue; }

int middle(const Placed& item) { return item.widget->geometry().center().y(); }

// Whether two fields stand one below the other, in line.
bool isColumn(Items::const_iterator from, Items::const_iterator to) {
  const auto last = std::find_if(std::reverse_iterator(to), std::reverse_iterator(from), isField);
  if (last == std::reverse_iterator(from)) return false;
  const int left = last->widget->x();
  return std::count_if(from, to,
                       [&](const Placed& item) { return isField(item) && item.widget->x() == left; }) > 1;
}

// Behind the leftmost column of fields that nothing reaches across; the end where there is none. The items
// are sorted by their left edges.
Items::iterator columnEnd(Items& items) {
  int right = items.empty() ? 0 : items.front().widget->geometry().right();
  for (auto item = items.begin(); item != items.end(); ++item) {
    const QRect at = item->widget->geometry();
    // The bits of a row stand closer.
    const int gap = item->widget->fontMetrics().averageCharWidth();
    if (at.left() > right + gap && isColumn(items.begin(), item)) return item;
    right = std::max(right, at.right());
  }
  return items.end();
}

void sortByRows(Items& items) {
  std::ranges::stable_sort(items, {}, middle);
  for (auto row = items.begin(); row != items.end();) {
    const int bottom = row->widget->geometry().bottom();
    const auto end =
        std::find_if(row + 1, items.end(), [&](const Placed& item) { return middle(item) > bottom; });
    std::stable_sort(row, end,
                     [](const Placed& a, const Placed& b) { return a.widget->x() < b.widget->x(); });
    row = end;
  }
}

}  // namespace

std::vector<Placed> inReadingOrder(std::vector<Placed> items) {
  std::ranges::stable_sort(items, {}, [](const Placed& item) { return item.widget->x(); });
  const auto cut = columnEnd(items);
  Items rest(cut, items.end());
  items.erase(cut, items.end());
  sortByRows(items);
  if (!rest.empty()) std::ranges::copy(inReadingOrder(std::move(rest)), std::back_inserter(items));
  return items;
}

}  // namespace tessarine::desktop
