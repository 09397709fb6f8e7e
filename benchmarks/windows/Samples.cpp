#include "benchmarks/windows/Samples.h"

#include <cstdlib>

namespace {

constexpr double kEnough = 0.3; // seconds of timed parts for one case
constexpr int kMostSamples = 40;
constexpr int kFewestSamples = 5;

} // namespace

SampleFile::SampleFile(const char* path) : m_out(std::fopen(path, "w"))
{
    if (!m_out) {
        std::fprintf(stderr, "%s cannot be written\n", path);
        std::exit(2);
    }
    std::fprintf(m_out, "{\"context\":{},\"benchmarks\":[");
}

SampleFile::~SampleFile()
{
    std::fprintf(m_out, "\n]}\n");
    std::fclose(m_out);
}

void SampleFile::Run(const Case& c, int64_t size)
{
    const std::string name = NameOf(c, size);
    const Prepared prepared = c.prepare(size);
    prepared.run();
    double total = 0;
    for (int i = 0; i < kMostSamples && (i < kFewestSamples || total < kEnough); ++i) {
        const double seconds = prepared.run();
        total += seconds;
        std::fprintf(m_out,
                     "%s\n {\"name\":\"%s\",\"run_name\":\"%s\",\"run_type\":\"iteration\",\"iterations\":1,"
                     "\"real_time\":%.1f,\"cpu_time\":%.1f,\"time_unit\":\"ns\",\"items\":%.0f}",
                     m_first ? "" : ",", name.c_str(), name.c_str(), seconds * 1e9, seconds * 1e9, prepared.items);
        m_first = false;
    }
    std::fprintf(stderr, "%s\n", name.c_str());
}

void SampleFile::RunAll(const std::vector<Case>& cases, const std::vector<int64_t>& sizes)
{
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        for (const Case& c : cases) {
            if (!c.oneSize || i == 0)
                Run(c, c.oneSize ? 1 : sizes[i]);
        }
    }
}
