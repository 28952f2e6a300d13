// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/launch.h"

int main(int argc, char** argv) { return vaktor::LanceVaktor(argc, argv); }
