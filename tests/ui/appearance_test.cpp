// How the windows look, measured on their pixels.

#include "runtime/appearance/appearance.h"

#include <QCheckBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>
#include <gtest/gtest.h>

#include "runtime/appearance/contrast.h"
#include "runtime/color.h"
#include "tests/support/program.h"
#include "update/update_window.h"

namespace peakwright {
namespace {

/// The best contrast of any pixel of the text with the colour that most pixels have.
double TextContrast(const QImage& image, QColor* background = nullptr) {
  QMap<QRgb, int> counts;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
  }
  const auto most = std::max_element(counts.cbegin(), counts.cend());
  double best = 1;
  for (auto color = counts.cbegin(); color != counts.cend(); ++color) {
    best = std::max(best, Contrast(QColor(color.key()), QColor(most.key())));
  }
  if (background != nullptr) *background = QColor(most.key());
  return best;
}

int RoomForText(const QWidget& widget) {
  const bool isBox = qobject_cast<const QCheckBox*>(&widget) != nullptr;
  if (!isBox && qobject_cast<const QPushButton*>(&widget) == nullptr) return widget.width();
  QStyleOptionButton option;
  option.initFrom(&widget);
  const auto contents = isBox ? QStyle::SE_CheckBoxContents : QStyle::SE_PushButtonContents;
  return widget.style()->subElementRect(contents, &option, &widget).width();
}

/// The part of a control's box in which something is drawn.
QRect Painted(const QWidget& control) {
  QRect box = control.geometry();
  if (qobject_cast<const QCheckBox*>(&control) != nullptr) box.setWidth(control.sizeHint().width());
  return box;
}

void CheckControls(const QWidget& content) {
  const QList<QWidget*> controls =
      content.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
  for (QWidget* control : controls) {
    if (!control->isVisible()) continue;
    const std::string text = control->property("text").toString().toStdString();
    QColor background;
    if (auto* line = qobject_cast<QLineEdit*>(control)) line->deselect();
    const bool framed = qobject_cast<QLabel*>(control) == nullptr;
    const QRect inside = control->rect() - (framed ? QMargins(4, 4, 4, 4) : QMargins());
    const double contrast = TextContrast(control->grab(inside).toImage(), &background);
    EXPECT_GE(contrast, 4.5) << text;
    const bool field = qobject_cast<QLineEdit*>(control) != nullptr ||
                       qobject_cast<QPlainTextEdit*>(control) != nullptr;
    if (field) {
      EXPECT_EQ(background, QColor(Qt::white)) << text;
      EXPECT_GE(contrast, 20) << "black on white";
      const auto behind = [&](QPalette::ColorRole role) {
        return control->palette().color(QPalette::Inactive, role);
      };
      EXPECT_GE(Contrast(behind(QPalette::HighlightedText), behind(QPalette::Highlight)), 4.5);
    } else if (!control->property("wordWrap").toBool()) {
      EXPECT_LE(control->fontMetrics().horizontalAdvance(control->property("text").toString()),
                RoomForText(*control))
          << text;
    }
    for (QWidget* other : controls) {
      const QRect overlap = Painted(*control) & Painted(*other);
      if (other == control || !other->isVisible() || overlap.isEmpty()) continue;
      EXPECT_LE(std::min(overlap.width(), overlap.height()), 2) << text;
    }
  }
}

/// In the middle of each side a line within two units of the control's edge stands out from the
/// window, as thick as the scale lets it.
void CheckOutlines(QWidget& content) {
  for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
    QImage image((QSizeF(content.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    content.render(&image);
    const QColor ground = content.palette().color(QPalette::Window);
    for (QWidget* control : content.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (!control->isVisible() || qobject_cast<QLabel*>(control) != nullptr) continue;
      const auto* field = qobject_cast<QLineEdit*>(control);
      if (field != nullptr && !field->hasFrame()) continue;
      QRect box = control->rect();
      QStyleOptionButton option;
      option.initFrom(control);
      const bool isBox = qobject_cast<QCheckBox*>(control) != nullptr;
      if (isBox || qobject_cast<QRadioButton*>(control) != nullptr) {
        box = control->style()->subElementRect(
            isBox ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator, &option,
            control);
      }
      box.translate(control->pos());
      const QPoint middle = box.center();
      for (const auto& [edge, inward] : std::initializer_list<std::pair<QPoint, QPoint>>{
               {{middle.x(), box.top()}, {0, 1}},
               {{middle.x(), box.bottom() + 1}, {0, -1}},
               {{box.left(), middle.y()}, {1, 0}},
               {{box.right() + 1, middle.y()}, {-1, 0}}}) {
        int seen = 0;
        for (int step = -1; step <= 2 * scale; ++step) {
          const QPoint place = (QPointF(edge) * scale).toPoint() + inward * step;
          if (image.valid(place)) seen += Contrast(image.pixelColor(place), ground) >= 3 ? 1 : 0;
        }
        EXPECT_GE(seen, static_cast<int>(scale))
            << control->metaObject()->className() << " at " << control->x() << ", " << control->y()
            << ", scale " << scale;
      }
    }
  }
}

/// The slider, which is at the end, stands out from what it moves in, at every scale.
void CheckSlider(const QPlainTextEdit& area) {
  QScrollBar& bar = *area.verticalScrollBar();
  ASSERT_GT(bar.value(), bar.maximum() - 1);
  for (const double scale : {1.0, 1.5, 2.0}) {
    QImage image((QSizeF(bar.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    bar.render(&image);
    const auto at = [&](int y) {
      return image.pixelColor((QPointF(bar.width() / 2.0, y) * scale).toPoint());
    };
    EXPECT_GE(Contrast(at(20), at(bar.height() - 20)), 3) << scale;
  }
  const QImage free = bar.grab().toImage();
  QTest::mousePress(&bar, Qt::LeftButton, {}, {5, bar.height() - 20});
  EXPECT_NE(bar.grab().toImage(), free) << "held";
  QTest::mouseRelease(&bar, Qt::LeftButton);
}

/// White on black with a bright highlight, as systems have it for those who see little.
QPalette HighContrast() {
  QPalette palette(Qt::black, Qt::black);
  palette.setColor(QPalette::Highlight, Qt::cyan);
  palette.setColor(QPalette::HighlightedText, Qt::black);
  return palette;
}

/// The default button is told from another at a glance, in front and behind.
void CheckDefault(TextWindow& main) {
  for (DesktopWindow* inFront :
       std::initializer_list<DesktopWindow*>{&Window1::Instance(), &main}) {
    inFront->Show();
    QApplication::processEvents();
    const auto look = [](const DesktopUIControl& button) {
      return ToolkitSide::Of(button)->grab(QRect(0, 0, 8, 20)).toImage();
    };
    const QImage run = look(main.Pushbutton1), clear = look(main.PushButton2);
    int differing = 0;
    for (int i = 0; i < 8 * 20; ++i) {
      differing += Contrast(run.pixelColor(i % 8, i / 8), clear.pixelColor(i % 8, i / 8)) > 1.4;
    }
    EXPECT_GE(differing, 20);
    EXPECT_EQ(run.pixel(2, 10), run.pixel(6, 10)) << "no ring without the focus";
    CheckControls(*ToolkitSide::ContentOf(main));
  }
}

/// What the page setup holds beside buttons and fields.
void CheckDialogControls(QWidget& content) {
  QRadioButton radio(&content);
  QDoubleSpinBox spin(&content);
  QProgressBar bar(&content);  // And one that a download has.
  radio.move(300, 252);
  spin.move(150, 252);
  bar.setGeometry(20, 252, 100, 20);
  for (QWidget* control : QWidgetList{&radio, &spin, &bar}) control->show();
  CheckOutlines(content);
}

TEST(Appearance, CanBeSeenLightDarkAndInHighContrast) {
  for (const std::string appearance : {"light", "dark", "high contrast"}) {
    SCOPED_TRACE(appearance);
    Program program;
    ShowAppearance(appearance == "dark");
    const QPalette colors = QApplication::palette();
    EXPECT_NE(colors.color(QPalette::Disabled, QPalette::Text), colors.color(QPalette::Text));
    if (appearance == "high contrast") QApplication::setPalette(HighContrast());
    EXPECT_EQ(Color::IsDarkMode(), appearance != "light");
    program.Main().Pushbutton1.Press();
    program.Main().CheckBox2.Value(true);
    Window2::Instance().Edit(5);
    Window3::Instance().Show();
    program.Main().CheckForUpdates();
    WindowDownload::Instance().ProgressBar1.Visible(true);
    WindowDownload::Instance().ProgressBar1.Value(50);
    QApplication::processEvents();
    // Where the toolkit can't start a thread to paint with, it waits for one without end.
    for (const QFileInfo& task : QDir("/proc/self/task").entryInfoList({"[0-9]*"})) {
      QFile name(task.filePath() + "/comm");
      EXPECT_FALSE(appearance == "light" && name.open(QFile::ReadOnly) &&
                   name.readAll().startsWith("Thread (pooled)"));
    }
    WindowDownload::Instance().ProgressBar1.Visible(false);
    CheckSlider(static_cast<const QPlainTextEdit&>(*ToolkitSide::Of(program.Main().textfield2)));
    CheckDialogControls(*ToolkitSide::ContentOf(Window3::Instance()));
    CheckDefault(program.Main());
    // Without a focus no field has a caret or a selection.
    if (QApplication::focusWidget() != nullptr) QApplication::focusWidget()->clearFocus();
    for (const DesktopWindow* window : std::initializer_list<const DesktopWindow*>{
             &program.Main(), &Window1::Instance(), &Window2::Instance(), &Window3::Instance(),
             &WindowDownload::Instance()}) {
      CheckControls(*ToolkitSide::ContentOf(*window));
      CheckOutlines(*ToolkitSide::ContentOf(*window));
    }
    EXPECT_GE(TextContrast(ToolkitSide::Of(Menu::Instance())->grab().toImage()), 4.5);
    QMenu& edit = ToolkitSide::MenuOf(*Menu::Instance().Child("Edit"));
    edit.popup({});
    QApplication::processEvents();
    EXPECT_GE(TextContrast(edit.grab(QRect(0, 4, 2, edit.height() - 8)).toImage()), 3);
    edit.close();
    EXPECT_FALSE(
        ToolkitSide::Of(WindowDownload::Instance().EditField1)->property("frame").toBool());
    ShowAppearance(false);
  }
}

}  // namespace
}  // namespace peakwright
