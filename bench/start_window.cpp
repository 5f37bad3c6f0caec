#include "firstpaint.h"
#include "mainwindow.h"

int main(int argc, char* argv[]) { return showuntilpainted<MainWindow>(argc, argv); }
