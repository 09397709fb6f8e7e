// The sample documents of the tree, for the tests of the tool.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

inline std::string SamplePath(const std::string& file)
{
    return std::string(LV_SAMPLES) + "/" + file;
}

inline std::string ReadSample(const std::string& file)
{
    std::ifstream stream(SamplePath(file), std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << file;
    std::stringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}
