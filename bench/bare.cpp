// bare PREFIX FIRST COUNT: runs the three commands and the pause of each address, and does nothing
// else. The time that a sweep takes beyond this is hostsweep's own.
#include <stdio.h>
#include <stdlib.h>
#include <time.h>

static void run(const char* command, const char* prefix, int host) {
  char line[256];
  snprintf(line, sizeof line, "%s %s.%d", command, prefix, host);
  FILE* output = popen(line, "r");
  char text[4096];
  while (fread(text, 1, sizeof text, output) > 0) {
  }
  pclose(output);
}

int main(int, char** arguments) {
  const int first = atoi(arguments[2]);
  for (int host = first; host < first + atoi(arguments[3]); ++host) {
    run("ping -c 1 -t 1", arguments[1], host);
    run("/usr/bin/host", arguments[1], host);
    run("Arp", arguments[1], host);
    printf("%s.%d\n", arguments[1], host);
    fflush(stdout);
    const timespec pause = {0, 10'000'000};
    nanosleep(&pause, nullptr);
  }
}
