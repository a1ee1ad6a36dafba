#pragma once

#include <QUrl>

#include "runtime/folder_item.h"

namespace peakwright {

/// Marks a file from the network with where it comes from, as browsers do, so that the system can
/// warn of it. A file system without such marks leaves it unmarked.
void MarkOrigin(const FolderItem& file, const QUrl& origin);

}  // namespace peakwright
