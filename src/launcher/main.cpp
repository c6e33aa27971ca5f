#include "driver/run_mode.h"

int main(int argc, char** argv) {
  return morvane_main(argc, argv);
}
