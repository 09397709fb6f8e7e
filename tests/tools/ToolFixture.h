// What the tests of the tool's commands share: a small routine with one property of most types.
#pragma once

#include "tests/tools/ToolFiles.h"
#include "tests/tools/ToolRunner.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

inline constexpr const char* kSmallRoutine = R"json({
  "routineVersion": 1,
  "unitMode": "metric",
  "collectionId": 7,
  "properties": [
    {"id": 10, "name": "Probe", "type": "category"},
    {"id": 26, "parent": 10, "name": "Count", "type": "long", "value": 5},
    {"id": 27, "parent": 10, "name": "Depth (mm)", "type": "linear", "value": 12.5,
     "bounds": {"lower": {"value": -1, "logic": "ge"}}, "error": "Out of range"},
    {"id": 28, "parent": 10, "name": "Mode", "type": "enum", "value": 2,
     "enumItems": [{"value": 1, "text": "Fast"}, {"value": 2, "text": "Exact"}]},
    {"id": 29, "name": "Note", "type": "multi_string", "value": "a~b|c\r\nd"},
    {"id": 30, "name": "Bore", "type": "tolerance",
     "value": {"type": "linear", "x": {"nominal": 10, "upper": 0.1, "lower": -0.1, "absolute": true, "editFlags": 1}}},
    {"id": 31, "name": "Place", "type": "position", "value": [1, 2.5, -3], "readOnly": true},
    {"id": 32, "name": "Path", "type": "scan_path_list", "value": [[1, 2, 3], [4, 5, 6]]},
    {"id": 33, "name": "Only when exact", "type": "double", "value": 1,
     "visibility": {"controls": [28], "rows": [[2]]}}
  ]
})json";

class ToolTest : public testing::Test {
protected:
    ToolFiles files;
    std::string routine = files.Write("routine.json", kSmallRoutine);

    ToolResult Run(const std::vector<std::string>& arguments) const { return RunLvprop(arguments); }

    nlohmann::json RunJson(std::vector<std::string> arguments, int status = 0) const
    {
        arguments.push_back("--json");
        const ToolResult result = RunLvprop(arguments);
        EXPECT_EQ(result.status, status) << result.err;
        return nlohmann::json::parse(result.out, nullptr, false);
    }
};
