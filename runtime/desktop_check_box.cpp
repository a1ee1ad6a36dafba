#include "runtime/desktop_check_box.h"

#include <QCheckBox>

#include "runtime/caption_text.h"
#include "runtime/desktop_application.h"

namespace peakwright {

DesktopCheckBox::DesktopCheckBox(DesktopWindow& window, const ControlLayout& layout)
    : DesktopUIControl(window, std::make_unique<QCheckBox>(ToCaption(layout.Text)), layout) {
  QObject::connect(static_cast<QCheckBox*>(Native()), &QCheckBox::toggled,
                   [this] { DesktopApplication::Current().RaiseInTurn(*Native(), ValueChanged); });
}

bool DesktopCheckBox::Value() const { return static_cast<QCheckBox&>(*Native()).isChecked(); }

void DesktopCheckBox::Value(bool value) { static_cast<QCheckBox&>(*Native()).setChecked(value); }

}  // namespace peakwright
