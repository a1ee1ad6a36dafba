// What the system reads before it starts the program: the libraries that the program names are
// those of the system's own folder, whatever lies beside the program (in Downloads, say).
#include <windows.h>

namespace {

constexpr IMAGE_LOAD_CONFIG_DIRECTORY64 FromSystemFolderOnly() {
  IMAGE_LOAD_CONFIG_DIRECTORY64 configuration{};
  configuration.Size = sizeof(configuration);
  configuration.Reserved1 = LOAD_LIBRARY_SEARCH_SYSTEM32;  // DependentLoadFlags, in later headers.
  return configuration;
}

}  // namespace

extern "C" const IMAGE_LOAD_CONFIG_DIRECTORY64 load_configuration = FromSystemFolderOnly();
