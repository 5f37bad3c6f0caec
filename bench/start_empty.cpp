#include "firstpaint.h"

#include <QMainWindow>

int main(int argc, char* argv[]) { return showuntilpainted<QMainWindow>(argc, argv); }
