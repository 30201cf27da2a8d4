#include "console/console.h"

int main() {
  return quorvane::runConsole();
}
