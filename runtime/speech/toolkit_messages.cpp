#include "runtime/speech/toolkit_messages.h"

#include <QLoggingCategory>
#include <QString>

namespace peakwright {
namespace {

QtMessageHandler toolkitHandler = nullptr;

/// Passes on all but the one kind of note that the toolkit writes without its category: each key
/// that a tool is told of and takes more than a tenth of a second over.
void PassOn(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (!message.startsWith(QStringLiteral("QSpiApplication::"))) {
    toolkitHandler(type, context, message);
  }
}

}  // namespace

void SilenceAssistiveMessages() {
  QLoggingCategory::setFilterRules(QStringLiteral("qt.accessibility.atspi.warning=false"));
  if (toolkitHandler == nullptr) toolkitHandler = qInstallMessageHandler(PassOn);
}

}  // namespace peakwright
