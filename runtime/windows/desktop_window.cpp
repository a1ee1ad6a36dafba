#include "runtime/desktop_window.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

#include "runtime/application/held_input.h"
#include "runtime/application/toolkit_side.h"
#include "runtime/desktop_menu.h"
#include "runtime/speech/announcement.h"
#include "runtime/text/toolkit_strings.h"
#include "runtime/windows/frame_buttons.h"

namespace peakwright {

class DesktopWindow::NativeWindow : public QMainWindow {
 public:
  NativeWindow(DesktopWindow& owner, const WindowLayout& layout)
      : QMainWindow(layout.Type == WindowType::Floating ? ToolkitSide::DocumentWindow() : nullptr,
                    Flags(layout)),
        owner_(owner),
        type_(layout.Type),
        canClose_(layout.HasCloseButton),
        resizeable_(layout.Resizeable) {
    setWindowTitle(ToQString(layout.Title));
    setCentralWidget(new QWidget(this));
    centralWidget()->setMinimumSize(layout.MinimumWidth, layout.MinimumHeight);
    centralWidget()->setMaximumSize(layout.MaximumWidth, layout.MaximumHeight);
    centralWidget()->installEventFilter(this);
    contentSize_ = QSize(layout.Width, layout.Height);
    resize(contentSize_);
    if (type_ == WindowType::Document && ToolkitSide::DocumentWindow() == nullptr) {
      ToolkitSide::DocumentWindow(this);
    }
  }

  ~NativeWindow() override {
    if (ToolkitSide::DocumentWindow() == this) ToolkitSide::DocumentWindow(nullptr);
  }

  /// Gives the content the size of the layout, with the menu bar above it.
  void FitContent() {
    int above = 0;
    if (owner_.menuBar_ != nullptr && !ToolkitSide::Of(*owner_.menuBar_)->isNativeMenuBar()) {
      ToolkitSide::Of(*owner_.menuBar_)->ensurePolished();
      above = ToolkitSide::Of(*owner_.menuBar_)->heightForWidth(contentSize_.width());
    }
    const QSize whole(contentSize_.width(), contentSize_.height() + above);
    if (resizeable_) {
      resize(whole);
    } else {
      setFixedSize(whole);
    }
    layout()->activate();
  }

  /// Puts a floating window in the middle of its display; its opening handler may move it. The
  /// document window goes up and to the left, so that its panels have room beside it.
  void Place() {
    constexpr QPoint kFromCorner(60, 20);
    const QRect display = screen()->availableGeometry();
    move(type_ == WindowType::Floating ? display.center() - rect().center()
                                       : display.topLeft() + kFromCorner);
  }

  /// Ends above the display's lower edge. The content is then lower than laid out, and no handler
  /// of the window knows: what is locked to the bottom gives way.
  void EndOnDisplay() {
    // Some window managers tell a frame's size only once the window is shown; this is enough for
    // the title bars that they have.
    constexpr int kUntoldFrame = 40;
    const int top = y();
    winId();
    const QMargins frame = windowHandle()->frameMargins();
    const int around = frame.isNull() ? kUntoldFrame : frame.top() + frame.bottom();
    const QRect display = screen()->availableGeometry();
    const int least = height() - contentSize_.height() + centralWidget()->minimumHeight();
    const int lower = std::min(top + around + height() - (display.bottom() + 1), height() - least);
    if (!resizeable_ || lower <= 0) return;
    contentSize_.rheight() -= lower;
    destroy();  // Once native, a resize would take the frame's place for the content's.
    resize(width(), height() - lower);
    layout()->activate();
    for (QWidget* control : lockedToBottom_) control->resize(control->size() - QSize(0, lower));
  }

  void ApplyTabOrder() {
    std::erase_if(tabOrder_, [](const auto& entry) {
      return (entry.second->focusPolicy() & Qt::TabFocus) == 0;
    });
    std::stable_sort(tabOrder_.begin(), tabOrder_.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    for (std::size_t i = 1; i < tabOrder_.size(); ++i) {
      setTabOrder(tabOrder_[i - 1].second, tabOrder_[i].second);
    }
  }

  void FocusFirst() {
    if (tabOrder_.empty()) return;
    QWidget* first = tabOrder_.front().second;
    // A button with the focus looks as if Return pressed it.
    if (qobject_cast<QPushButton*>(first) != nullptr && HasDefaultButton()) first = defaultButton_;
    first->setFocus();
    // As if tabbed into: what stands in the field gives way to what is typed.
    if (auto* field = qobject_cast<QLineEdit*>(first)) field->selectAll();
  }

  void ComeToFront() {
    auto* from = dynamic_cast<NativeWindow*>(QApplication::activeWindow());
    if (from != nullptr && from != this) {
      cameFrom_ = from;
      from->givesWay_ = true;
    }
    if (isMinimized()) {
      showNormal();
    } else {
      show();
    }
    raise();
    activateWindow();
  }

  /// Hides the window. If it is in front, the one that it was shown from comes back there.
  void GoBack() {
    const bool leavesFront = isActiveWindow() && !givesWay_;
    hide();
    QWidget* back = ToolkitSide::DocumentWindow();
    if (cameFrom_ != nullptr && cameFrom_->isVisible()) back = cameFrom_;
    if (leavesFront && back != nullptr) back->activateWindow();
  }

  std::vector<std::pair<int, QWidget*>> tabOrder_;
  std::vector<QWidget*> lockedToBottom_;
  QAbstractButton* defaultButton_ = nullptr;
  QAbstractButton* cancelButton_ = nullptr;

 protected:
  void showEvent(QShowEvent* event) override {
    constexpr auto kButtons = Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint;
    if ((windowFlags() & kButtons) == 0) AskForFrameWithoutButtons(*windowHandle());
    QMainWindow::showEvent(event);
  }

  bool event(QEvent* event) override {
    const bool comes = event->type() == QEvent::WindowActivate;
    if (comes) givesWay_ = false;
    // It looks as if Return pressed it only while that is so.
    if (comes || event->type() == QEvent::WindowDeactivate) UpdateDefaultButton();
    return QMainWindow::event(event);
  }

  void closeEvent(QCloseEvent* event) override {
    const bool isDocument = type_ == WindowType::Document;
    event->setAccepted(isDocument || canClose_);
    if (isDocument) {
      DesktopApplication::Current().Quit(0);
    } else if (canClose_) {
      owner_.Close();
    }
  }

  void changeEvent(QEvent* event) override {
    QMainWindow::changeEvent(event);
    // Another style may have a menu bar of another height. That is no resize.
    if (event->type() == QEvent::StyleChange && !isMaximized()) FitContent();
  }

  void keyPressEvent(QKeyEvent* event) override {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QAbstractButton* button = isReturn                         ? OnReturn()
                              : event->key() == Qt::Key_Escape ? cancelButton_
                                                               : nullptr;
    if (button != nullptr) {
      button->click();
    } else {
      QMainWindow::keyPressEvent(event);
    }
  }

  void mousePressEvent(QMouseEvent* event) override {
    BackToField();
    QMainWindow::mousePressEvent(event);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonPress && watched != centralWidget() &&
        (static_cast<QWidget*>(watched)->focusPolicy() & Qt::ClickFocus) == 0) {
      BackToField();
    }
    if (event->type() == QEvent::Resize && watched == centralWidget() && isVisible() &&
        centralWidget()->size() != contentSize_) {
      contentSize_ = centralWidget()->size();
      DesktopApplication::Current().Raise([this] { owner_.Event_Resized(); });
    }
    return QMainWindow::eventFilter(watched, event);
  }

 private:
  bool HasDefaultButton() const { return defaultButton_ != nullptr && !defaultButton_->isHidden(); }

  void UpdateDefaultButton() {
    if (defaultButton_ != nullptr) defaultButton_->update();
  }

  /// The button that Return presses: the default one, and where none is shown, that with the focus.
  QAbstractButton* OnReturn() const {
    return HasDefaultButton() ? defaultButton_ : qobject_cast<QPushButton*>(focusWidget());
  }

  /// After a click on what takes no focus, the next text typed goes into a field.
  void BackToField() {
    if (auto* field = qobject_cast<QLineEdit*>(focusWidget())) {
      field->selectAll();
    } else {
      FocusFirst();
    }
  }

  static Qt::WindowFlags Flags(const WindowLayout& layout) {
    Qt::WindowFlags flags = Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    flags |= layout.Type == WindowType::Floating ? Qt::Tool : Qt::Window;
    if (layout.HasCloseButton) flags |= Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint;
    if (layout.HasMaximizeButton) flags |= Qt::WindowMaximizeButtonHint;
    if (layout.HasMinimizeButton) flags |= Qt::WindowMinimizeButtonHint;
    return flags;
  }

  DesktopWindow& owner_;
  WindowType type_;
  bool canClose_;
  bool resizeable_;
  QSize contentSize_;
  QPointer<QWidget> cameFrom_;
  bool givesWay_ = false;  // To another window, which is about to come to the front.
};

DesktopWindow::DesktopWindow(const WindowLayout& layout)
    : native_(std::make_unique<NativeWindow>(*this, layout)), visibleAtOpening_(layout.Visible) {}

DesktopWindow::~DesktopWindow() {
  // The menu bar belongs to the application, not to the window that shows it.
  if (menuBar_ != nullptr) ToolkitSide::Of(*menuBar_)->setParent(nullptr);
}

int DesktopWindow::Left() const { return native_->x(); }
int DesktopWindow::Top() const { return native_->y(); }
void DesktopWindow::Left(int pixels) { native_->move(pixels, native_->y()); }
void DesktopWindow::Top(int pixels) { native_->move(native_->x(), pixels); }
int DesktopWindow::Width() const { return Content()->width(); }
int DesktopWindow::Height() const { return Content()->height(); }

void DesktopWindow::Open() {
  native_->FitContent();
  native_->Place();
  native_->EndOnDisplay();
  native_->ApplyTabOrder();
  DesktopApplication::Current().Raise([this] { Event_Opening(); });
  if (visibleAtOpening_) Show();
}

void DesktopWindow::Show() {
  HeldInput& input = ToolkitSide::Input();
  if (input.IsHolding()) {
    input.Keep(*native_, [this] { Show(); });
    return;
  }
  native_->FocusFirst();
  native_->ComeToFront();
}

void DesktopWindow::Hide() { native_->GoBack(); }

void DesktopWindow::Close() {
  Hide();
  DesktopApplication::Current().Raise([this] { Event_Closing(); });
  DesktopApplication::Current().Release(*this);
}

void DesktopWindow::Announce(std::string_view text) { peakwright::Announce(*native_, text); }

void DesktopWindow::MenuBar(DesktopMenuBar& bar) {
  menuBar_ = &bar;
  native_->setMenuBar(ToolkitSide::Of(bar));
}

void DesktopWindow::AddMenuHandler(std::string_view name, std::function<bool()> action) {
  if (menuBar_ == nullptr) return;
  if (DesktopMenuItem* item = menuBar_->Lookup(name)) item->Handler(std::move(action));
}

QWidget* DesktopWindow::Native() const { return native_.get(); }
QWidget* DesktopWindow::Content() const { return native_->centralWidget(); }

QWidget* ToolkitSide::Of(const DesktopWindow& window) { return window.Native(); }
QWidget* ToolkitSide::ContentOf(const DesktopWindow& window) { return window.Content(); }

void DesktopWindow::AddToTabOrder(QWidget& widget, int tabIndex) {
  native_->tabOrder_.emplace_back(tabIndex, &widget);
  widget.installEventFilter(native_.get());
}

void DesktopWindow::LockToBottom(QWidget& widget) { native_->lockedToBottom_.push_back(&widget); }

void DesktopWindow::DefaultButton(QWidget& button) {
  native_->defaultButton_ = qobject_cast<QAbstractButton*>(&button);
}

void DesktopWindow::CancelButton(QWidget& button) {
  native_->cancelButton_ = qobject_cast<QAbstractButton*>(&button);
}

}  // namespace peakwright
