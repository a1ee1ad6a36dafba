#include <unistd.h>

#include "app/application.h"

int main(int argc, char** argv) {
  const int status = peakwright::App(argc, argv).Run();
  // As its last act the toolkit would wait for a proxy's script, which may never come.
  _exit(status);
}
