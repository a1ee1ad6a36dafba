#pragma once

#include <string>
#include <string_view>

#include <QString>

namespace peakwright {

inline QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The toolkit's form of a caption that is to be shown as it is: an ampersand is no mnemonic.
inline QString ToCaption(QString text) { return text.replace(u'&', QStringLiteral("&&")); }
inline QString ToCaption(std::string_view text) { return ToCaption(ToQString(text)); }

inline std::string FromCaption(QString caption) {
  return caption.replace(QStringLiteral("&&"), QStringLiteral("&")).toStdString();
}

}  // namespace peakwright
