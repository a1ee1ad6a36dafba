#include "runtime/desktop_popup_menu.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QWheelEvent>

#include "runtime/caption_text.h"
#include "runtime/desktop_application.h"

namespace peakwright {
namespace {

/// A row is chosen from the open menu only: neither the wheel nor an arrow key on the closed box
/// chooses one in passing.
class NativePopup : public QComboBox {
 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }

  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Up:
      case Qt::Key_Down:
      case Qt::Key_Space:
        showPopup();
        break;
      default:  // Return and Escape among them, which belong to the window's buttons
        event->ignore();
    }
  }
};

QComboBox& Box(const DesktopPopupMenu& menu) { return static_cast<QComboBox&>(*menu.Native()); }

}  // namespace

DesktopPopupMenu::DesktopPopupMenu(DesktopWindow& window, const ControlLayout& layout)
    : DesktopUIControl(window, std::make_unique<NativePopup>(), layout) {
  AddRow(layout.Text);
  SelectedRowIndex(0);
  AccessibleName(layout.Text);
  Box(*this).view()->setAccessibleName(Box(*this).accessibleName());
  QObject::connect(&Box(*this), &QComboBox::activated, [this] {
    DesktopApplication::Current().RaiseInTurn(*Native(), SelectionChanged);
  });
}

int DesktopPopupMenu::RowCount() const { return Box(*this).count(); }

std::string DesktopPopupMenu::RowTextAt(int row) const {
  return Box(*this).itemText(row).toStdString();
}

void DesktopPopupMenu::AddRow(std::string_view text) { Box(*this).addItem(ToQString(text)); }

void DesktopPopupMenu::AddRowAt(int row, std::string_view text) {
  Box(*this).insertItem(row, ToQString(text));
}

void DesktopPopupMenu::RemoveRowAt(int row) { Box(*this).removeItem(row); }

int DesktopPopupMenu::SelectedRowIndex() const { return Box(*this).currentIndex(); }

void DesktopPopupMenu::SelectedRowIndex(int row) { Box(*this).setCurrentIndex(row); }

}  // namespace peakwright
