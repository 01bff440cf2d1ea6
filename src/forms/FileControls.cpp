#include "forms/FileControls.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/Text.h"

namespace tessarine::forms {

namespace fs = std::filesystem;

namespace {

// Walks a directory as far as it can be read, and gives the names of its entries that `wanted` takes, sorted.
template <class Wanted>
std::vector<std::string> namesIn(const std::string& path, Wanted&& wanted) {
  std::vector<std::string> names;
  std::error_code error;
  fs::directory_iterator entry(path, fs::directory_options::skip_permission_denied, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code unreadable;
    if (wanted(*entry, unreadable) && !unreadable) names.push_back(entry->path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// One pattern without ";". The walk falls back to the last "*" alone, so it needs no recursion.
bool matchesOne(std::string_view name, std::string_view pattern) {
  std::size_t n = 0;
  std::size_t p = 0;
  std::size_t star = std::string_view::npos;
  std::size_t resume = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      resume = n;
    } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
      // "?" stands for a whole character, not for a byte of one.
      const bool whole = pattern[p] == '?';
      ++p;
      ++n;
      while (whole && n < name.size() && (static_cast<unsigned char>(name[n]) & 0xC0U) == 0x80U) ++n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++resume;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

}  // namespace

bool matchesPattern(std::string_view name, std::string_view patterns) {
  while (true) {
    const auto end = patterns.find(';');
    std::string_view pattern = trimmed(patterns.substr(0, end), " ");
    // A closing ".*" asks for any extension, none included.
    if (pattern.ends_with("*.*")) pattern.remove_suffix(2);
    const bool hidden = name.starts_with('.') && !pattern.starts_with('.');
    if (!pattern.empty() && !hidden && matchesOne(name, pattern)) return true;
    if (end == std::string_view::npos) return false;
    patterns.remove_prefix(end + 1);
  }
}

bool DriveListBox::select(const std::string& path) {
  int best = -1;
  std::size_t length = 0;
  const auto& drives = List.get();
  for (std::size_t i = 0; i < drives.size(); ++i) {
    const std::string& drive = drives[i];
    const bool holds = path.starts_with(drive) &&
                       (drive.ends_with('/') || path.size() == drive.size() || path[drive.size()] == '/');
    if (holds && drive.size() > length) {
      best = static_cast<int>(i);
      length = drive.size();
    }
  }
  if (best >= 0) ListIndex = best;
  return best >= 0;
}

void DriveListBox::changed(Aspect aspect) {
  tellObservers(aspect);
  if (aspect == Aspect::ListIndex) raise(Change);
}

// Opening it is the one sure test.
bool DirListBox::canEnter(const std::string& path) {
  std::error_code error;
  const fs::directory_iterator probe(path, error);
  return !error;
}

void DirListBox::enter(const std::string& path) {
  const fs::path target = fs::absolute(path.empty() ? "/" : path).lexically_normal();
  const fs::directory_iterator probe(target);
  std::string text = target.string();
  if (text.size() > 1 && text.ends_with('/')) text.pop_back();
  if (Path == text) {
    rebuild();
  } else {
    Path = text;
  }
}

std::string DirListBox::pathOf(int item) const {
  const auto place = static_cast<std::size_t>(item);
  return item < 0 || place >= paths_.size() ? std::string() : paths_[place];
}

void DirListBox::enterItem(int item) {
  const std::string path = pathOf(item);
  if (path.empty()) return;
  if (canEnter(path)) {
    enter(path);
  } else {
    refresh();
  }
}

Control::Effect DirListBox::onDoubleClick() {
  return {.run = [this] {
    enterItem(ListIndex);
    raise(DblClick);
  }};
}

Control::Effect DirListBox::onSet(std::string_view value) {
  if (const int item = itemWith(value); item >= 0) return {.run = [this, item] { enterItem(item); }};
  const std::string path(value);
  if (!canEnter(path)) return {.refusal = "cannot enter \"" + path + '"'};
  return {.run = [this, path] { enter(path); }};
}

void DirListBox::refresh() { rebuild(); }

void DirListBox::changed(Aspect aspect) {
  if (aspect == Aspect::Text) rebuild();
  tellObservers(aspect);
  if (aspect == Aspect::Text) raise(Change);
}

void DirListBox::rebuild() {
  std::vector<std::string> lines;
  paths_.clear();
  fs::path reached;
  for (const fs::path& part : fs::path(Path.get())) {
    reached /= part;
    lines.push_back(part.string());
    paths_.push_back(reached.string());
  }
  depth_ = static_cast<int>(lines.size());
  const auto below = namesIn(Path, [](const fs::directory_entry& entry, std::error_code& unreadable) {
    return entry.is_directory(unreadable);
  });
  for (const std::string& name : below) {
    lines.push_back(name);
    paths_.push_back((reached / name).string());
  }
  List = std::move(lines);
  ListIndex = depth_ - 1;
}

void FileListBox::changed(Aspect aspect) {
  if (aspect == Aspect::Text || aspect == Aspect::Value) rebuild();
  tellObservers(aspect);
  if (aspect == Aspect::ListIndex && ListIndex >= 0) raise(Click);
}

void FileListBox::take(int item) {
  if (ListIndex == item) {
    raise(Click);
  } else {
    ListIndex = item;
  }
}

void FileListBox::rebuild() {
  ListIndex = -1;
  const std::string pattern = Pattern;
  List = namesIn(Path, [&](const fs::directory_entry& entry, std::error_code& unreadable) {
    return matchesPattern(entry.path().filename().string(), pattern) && !entry.is_directory(unreadable);
  });
}

}  // namespace tessarine::forms
