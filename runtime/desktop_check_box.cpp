#include "runtime/desktop_check_box.h"

#include <QCheckBox>

#include "runtime/caption_text.h"
#include "runtime/desktop_application.h"
#include "runtime/held_input.h"

namespace peakwright {

DesktopCheckBox::DesktopCheckBox(DesktopWindow& window, const ControlLayout& layout)
    : DesktopUIControl(window, std::make_unique<QCheckBox>(ToCaption(layout.Text)), layout) {
  auto& box = static_cast<QCheckBox&>(*Native());
  box.setFocusPolicy(Qt::TabFocus);
  QObject::connect(&box, &QCheckBox::toggled, [this, &box](bool value) {
    HeldInput& input = DesktopApplication::Current().Input();
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

bool DesktopCheckBox::Value() const { return static_cast<QCheckBox&>(*Native()).isChecked(); }

void DesktopCheckBox::Value(bool value) { static_cast<QCheckBox&>(*Native()).setChecked(value); }

}  // namespace peakwright
