#include "app/launch.h"

int main(int argc, char** argv) { return vaktor::LanceVaktor(argc, argv); }
