#include "runtime/windows/frame_buttons.h"

#include <QWindow>

#ifdef PEAKWRIGHT_XCB
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

#include <QGuiApplication>
#endif

namespace peakwright {

#ifdef PEAKWRIGHT_XCB
void AskForFrameWithoutButtons(const QWindow& window) {
  const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  // Off screen the toolkit has such an interface, too, with no server behind it.
  if (x11 == nullptr || QGuiApplication::platformName() != QStringLiteral("xcb")) return;
  constexpr std::string_view kName = "_MOTIF_WM_HINTS";
  constexpr std::uint32_t kTellsFunctionsAndDecorations = 1 | 2, kMoving = 4,
                          kBorderAndTitle = 2 | 8;
  constexpr std::array<std::uint32_t, 5> kHints{kTellsFunctionsAndDecorations, kMoving,
                                                kBorderAndTitle};
  xcb_connection_t* server = x11->connection();
  const auto request = xcb_intern_atom(server, 0, kName.size(), kName.data());
  const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> name(
      xcb_intern_atom_reply(server, request, nullptr), &std::free);
  if (name == nullptr) return;
  xcb_change_property(server, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()),
                      name->atom, name->atom, 32, kHints.size(), kHints.data());
}
#else
void AskForFrameWithoutButtons(const QWindow&) {}
#endif

}  // namespace peakwright
