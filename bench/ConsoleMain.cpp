// A program that writes to the console although the port's own entry point makes none.
#include "platform/ProgramEntry.h"

int main() { return platform::RunProgram(L""); }
