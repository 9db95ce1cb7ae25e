// The process entry of hostsweep-network.
#include "network/run.h"

int main(int argumentCount, char** arguments) {
  return hostsweep::RunNetworkProgram(argumentCount, arguments);
}
