// What any window of the toolkit costs, for comparison: tools/measure.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(1005, 618);
  window.show();
  return QApplication::exec();
}
