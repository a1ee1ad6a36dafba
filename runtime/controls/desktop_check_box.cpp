#include "runtime/desktop_check_box.h"

#include <QCheckBox>

#include "runtime/application/held_input.h"
#include "runtime/application/toolkit_side.h"
#include "runtime/desktop_application.h"
#include "runtime/text/toolkit_strings.h"

namespace peakwright {

DesktopCheckBox::DesktopCheckBox(DesktopWindow& window, const ControlLayout& layout)
    : DesktopUIControl(window, std::make_unique<QCheckBox>(ToCaption(layout.Text)), layout) {
  auto& box = Native<QCheckBox>();
  box.setFocusPolicy(Qt::TabFocus);
  QObject::connect(&box, &QCheckBox::toggled, [this, &box](bool value) {
    HeldInput& input = ToolkitSide::Input();
    if (!input.IsHolding()) {
      DesktopApplication::Current().Raise(ValueChanged);
      return;
    }
    // What is done before the box's turn comes must find it as it was.
    const QSignalBlocker quietly(box);
    box.setChecked(!value);
    input.Keep(box, [this] { Value(!Value()); });
  });
}

bool DesktopCheckBox::Value() const { return Native<QCheckBox>().isChecked(); }

void DesktopCheckBox::Value(bool value) { Native<QCheckBox>().setChecked(value); }

}  // namespace peakwright
