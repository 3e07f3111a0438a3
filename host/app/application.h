#pragma once

// Runs the reference host from its command line to its end; returns the program's exit code.
int runHost(int &argc, char **argv);
