// Runs cases one after the other and writes every sample in the form of Google Benchmark, which this tool chain does
// not have.
#pragma once

#include "benchmarks/Cases.h"

#include <cstdio>

class SampleFile {
public:
    /// Ends the program when the file cannot be written.
    explicit SampleFile(const char* path);
    ~SampleFile();
    SampleFile(const SampleFile&) = delete;
    SampleFile& operator=(const SampleFile&) = delete;

    /// One run untimed, then as many as make their times worth reading.
    void Run(const Case& c, int64_t size);
    void RunAll(const std::vector<Case>& cases, const std::vector<int64_t>& sizes);

private:
    std::FILE* m_out;
    bool m_first = true;
};
