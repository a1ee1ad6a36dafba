#include "runtime/desktop_ui_control.h"

#include <algorithm>
#include <utility>

#include <QFont>
#include <QWidget>

#include "runtime/appearance/system_font.h"
#include "runtime/application/toolkit_side.h"
#include "runtime/desktop_window.h"
#include "runtime/text/toolkit_strings.h"

namespace peakwright {

DesktopUIControl::DesktopUIControl(DesktopWindow& window, std::unique_ptr<QWidget> widget,
                                   const ControlLayout& layout)
    : widget_(std::move(widget)) {
  widget_->setParent(window.Content());
  widget_->setFont(SystemFont(layout.FontSize, layout.Bold));
  widget_->setGeometry(layout.Place.Left, layout.Place.Top, layout.Place.Width,
                       layout.Place.Height);
  widget_->setVisible(layout.Visible);
  widget_->setAccessibleName(ToQString(layout.AccessibleName));
  if (!layout.TabStop) widget_->setFocusPolicy(Qt::ClickFocus);
  window.AddToTabOrder(*widget_, layout.TabIndex);
  if (layout.LockBottom) window.LockToBottom(*widget_);
}

DesktopUIControl::~DesktopUIControl() = default;

int DesktopUIControl::Left() const { return widget_->x(); }
int DesktopUIControl::Top() const { return widget_->y(); }
int DesktopUIControl::Width() const { return widget_->width(); }
int DesktopUIControl::Height() const { return widget_->height(); }

void DesktopUIControl::Width(int pixels) { widget_->resize(std::max(0, pixels), Height()); }
void DesktopUIControl::Height(int pixels) { widget_->resize(Width(), std::max(0, pixels)); }

bool DesktopUIControl::Visible() const { return !widget_->isHidden(); }
void DesktopUIControl::Visible(bool visible) { widget_->setVisible(visible); }

void DesktopUIControl::AccessibleName(std::string_view name) {
  widget_->setAccessibleName(ToQString(name));
}

void DesktopUIControl::AccessibleDescription(std::string_view description) {
  widget_->setAccessibleDescription(ToQString(description));
}

QWidget* ToolkitSide::Of(const DesktopUIControl& control) { return control.widget_.get(); }

}  // namespace peakwright
