// A folder of its own for one test, empty at first and gone with the test.
#pragma once

#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>

class TestFolder {
public:
    TestFolder()
    {
        std::random_device random;
        for (int attempt = 0; attempt < 100; ++attempt) {
            m_path = std::filesystem::temp_directory_path() / ("lv-test-" + std::to_string(random()));
            if (std::filesystem::create_directories(m_path))
                return;
        }
        throw std::runtime_error("no folder for the test");
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder()
    {
        std::error_code ignored; // a file still open on Windows must not fail the test from here
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};
