#include "runtime/desktop_popup_menu.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QWheelEvent>

#include "runtime/application/toolkit_side.h"
#include "runtime/desktop_application.h"
#include "runtime/text/toolkit_strings.h"

namespace peakwright {
namespace {

/// A row is chosen from the open menu only: neither the wheel nor an arrow key on the closed box
/// chooses one in passing.
class NativePopup : public QComboBox {
 public:
  NativePopup() { setFocusPolicy(Qt::TabFocus); }

  void showPopup() override {
    // An assistive tool can ask for it where the box isn't on screen.
    if (isVisible()) QComboBox::showPopup();
  }

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
        if (!OpenOn(event->text())) event->ignore();
    }
  }

 private:
  /// Opens the menu on the next row that begins with `letters`. Returns whether there is one.
  bool OpenOn(const QString& letters) {
    if (letters.isEmpty() || !letters.front().isLetterOrNumber()) return false;
    const QModelIndex next = model()->index((currentIndex() + 1) % count(), 0);
    const QModelIndexList found =
        model()->match(next, Qt::DisplayRole, letters, 1, Qt::MatchStartsWith | Qt::MatchWrap);
    if (found.isEmpty()) return false;
    showPopup();
    view()->setCurrentIndex(found.front());
    return true;
  }
};

constexpr int kWidestRow = 240;  // Pixels; longer names are shortened in the middle.

/// What is shown and what is meant.
void SetText(QComboBox& box, int row, std::string_view text) {
  const QString whole = ToQString(text);
  box.setItemText(row, box.fontMetrics().elidedText(whole, Qt::ElideMiddle, kWidestRow));
  box.setItemData(row, whole, Qt::UserRole);
}

}  // namespace

DesktopPopupMenu::DesktopPopupMenu(DesktopWindow& window, const ControlLayout& layout)
    : DesktopUIControl(window, std::make_unique<NativePopup>(), layout) {
  AddRow(layout.Text);
  SelectedRowIndex(0);
  AccessibleName(layout.Text);
  Native<QComboBox>().view()->setAccessibleName(Native<QComboBox>().accessibleName());
  QObject::connect(&Native<QComboBox>(), &QComboBox::activated,
                   [this] { ToolkitSide::RaiseInTurn(Native<QWidget>(), SelectionChanged); });
}

int DesktopPopupMenu::RowCount() const { return Native<QComboBox>().count(); }

std::string DesktopPopupMenu::RowTextAt(int row) const {
  return Native<QComboBox>().itemData(row, Qt::UserRole).toString().toStdString();
}

void DesktopPopupMenu::AddRow(std::string_view text) { AddRowAt(RowCount(), text); }

void DesktopPopupMenu::AddRowAt(int row, std::string_view text) {
  Native<QComboBox>().insertItem(row, QString());
  SetText(Native<QComboBox>(), row, text);
}

void DesktopPopupMenu::RemoveRowAt(int row) { Native<QComboBox>().removeItem(row); }

int DesktopPopupMenu::SelectedRowIndex() const { return Native<QComboBox>().currentIndex(); }

void DesktopPopupMenu::SelectedRowIndex(int row) { Native<QComboBox>().setCurrentIndex(row); }

}  // namespace peakwright
