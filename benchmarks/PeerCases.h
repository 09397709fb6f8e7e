// General-purpose libraries on the same work, each as far as its library was found.
#pragma once

#include "benchmarks/Cases.h"

void AddGlibCases(std::vector<Case>& cases);
void AddRapidJsonCases(std::vector<Case>& cases);
void AddSimdjsonCases(std::vector<Case>& cases);
void AddSignalCases(std::vector<Case>& cases);
void AddMapCases(std::vector<Case>& cases);
void AddLockCases(std::vector<Case>& cases);
