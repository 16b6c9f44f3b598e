#include "export/HostFiles.h"

int main(int argc, char** argv) { return inkexport::RunExport({argv + (argc > 0 ? 1 : 0), argv + argc}); }
