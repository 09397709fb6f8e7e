// Saving and loading in the plain words of the tests, and the golden record of each type.
#pragma once

#include "tests/core/ModelFixture.h"

struct Loaded {
    bool success = false;
    std::vector<Text> messages;
};

class Persistence : public ModelTest {
protected:
    /// Loads a text in a transaction that is open.
    Loaded Load(TextView text)
    {
        CComPtr<IqorStream> stream = MakeStream(text);
        CComPtr<IqorStream> errors = MakeStream();
        VARIANT_BOOL success = 9;
        EXPECT_EQ(collection->LoadFromStream(stream, errors, &success), S_OK);
        EXPECT_TRUE(success == VARIANT_TRUE || success == VARIANT_FALSE);
        return {success == VARIANT_TRUE, ReadStrings(errors)};
    }
    /// Adds a property to the open transaction and gives it.
    CComPtr<IqorProperty> AddOpen(const NewProperty& added)
    {
        EXPECT_EQ(AddTo(collection, added), S_OK);
        return PropertyOf(collection, added.id);
    }
    /// The one message of a load that has one fault.
    Text FaultOf(TextView text)
    {
        const Loaded loaded = Load(text);
        EXPECT_FALSE(loaded.success);
        EXPECT_EQ(loaded.messages.size(), 1U);
        return loaded.messages.empty() ? Text() : loaded.messages.front();
    }
    static Text Message(TextView fault, TextView line)
    {
        return Text(OLESTR("A parsing error has occurred (")).append(fault).append(OLESTR(") at line: ")).append(line);
    }
    LONG UnusedCategory()
    {
        LONG id = 0;
        EXPECT_EQ(collection->GetUnusedSaveDataCategoryID(&id), S_OK);
        return id;
    }
    LONG MismatchedCategory()
    {
        LONG id = 0;
        EXPECT_EQ(collection->GetMismatchedSaveDataCategoryID(&id), S_OK);
        return id;
    }
    void SetVersion(LONG version) { EXPECT_EQ(collection->put_LoadVersion(version), S_OK); }
};

/// One property of each type that can be saved, its text and its record.
struct Golden {
    EprpPropDataType type;
    const OLECHAR* value;
    const OLECHAR* record;
};

inline const Golden kGolden[] = {
    {E_PROP_DT_NONE, OLESTR(""), OLESTR("~1al0|0")},
    {E_PROP_DT_ANGLE, OLESTR("1.23456789"), OLESTR("~1al0|11.2346")},
    {E_PROP_DT_LINEAR, OLESTR("-12.50"), OLESTR("~1al0|2-12.5")},
    {E_PROP_DT_LONG, OLESTR("5"), OLESTR("~1al0|35")},
    {E_PROP_DT_DOUBLE, OLESTR("0.00004"), OLESTR("~1al0|40")},
    {E_PROP_DT_STRING_ANSI, OLESTR("a~b|c"), OLESTR("~1al0|5a\\$b\\&c")},
    {E_PROP_DT_MULTI_STRING_UNICODE, OLESTR("one\r\ntwo~#"), OLESTR("~1al0|6one#two\\$#")},
    {E_PROP_DT_TOLERANCE, OLESTR("1#3\xACx\xACx"),
     OLESTR("~1al0|71#3\xAC"
            "0\xAC"
            "0\xAC"
            "0\xAC"
            "0")},
    {E_PROP_DT_POSITION, OLESTR("1;2;3.5"), OLESTR("~1al0|81;2;3.5")},
    {E_PROP_DT_VECTOR, OLESTR("0;0;1"), OLESTR("~1al0|90;0;1")},
    {E_PROP_DT_ENUM, OLESTR("26"), OLESTR("~1al0|k1a")},
    {E_PROP_DT_DATE, OLESTR("2024-01-02"), OLESTR("~1al0|l2024-01-02")},
    {E_PROP_DT_FORM, OLESTR("2.25"), OLESTR("~1al0|m2.25")},
    {E_PROP_DT_STATEMENT, OLESTR("#1=2|3"), OLESTR("~1al0|n#1=2\\&3")},
    {E_PROP_DT_FULL_PRECISION, OLESTR("1.23456789"), OLESTR("~1al0|o1.234568")},
    {E_PROP_DT_DWORD, OLESTR("-1"), OLESTR("~1al0|q4294967295")},
    {E_PROP_DT_SCAN_PATH_LIST, OLESTR("1,2,3\r\n4,5,6"),
     OLESTR("~1al0|r    1.0000,    2.0000,    3.0000#    4.0000,    5.0000,    6.0000")},
    {E_PROP_DT_CATEGORY, OLESTR("Head"), OLESTR("~1al0|sHead")},
    {E_PROP_DT_POINTS_LIST, OLESTR("p"), OLESTR("~1al0|tp")},
};
