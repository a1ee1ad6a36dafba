#include "runtime/transfers/transfer.h"

#include <stdexcept>

#include <QCoreApplication>
#include <QLibrary>

namespace peakwright {

const Transport& LoadedTransport() {
#ifdef PEAKWRIGHT_TRANSPORT
  QLibrary library(QCoreApplication::applicationDirPath() +
                   QStringLiteral("/../" PEAKWRIGHT_TRANSPORT));
  const auto entry =
      reinterpret_cast<decltype(&PeakwrightTransport)>(library.resolve("PeakwrightTransport"));
  if (entry == nullptr) throw std::runtime_error(library.errorString().toStdString());
  return *entry();
#else
  return *PeakwrightTransport();
#endif
}

}  // namespace peakwright
