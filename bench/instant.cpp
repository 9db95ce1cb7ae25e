// Stands in for ping, host and Arp, and takes no time: one line that serves them all.
#include <stdio.h>

int main() { puts("domain name pointer host.lab.example. at 02:00:c6:12:00:01 on lab domain ."); }
