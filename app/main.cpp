#include "app/application.h"

int main(int argc, char** argv) { return peakwright::App(argc, argv).Run(); }
