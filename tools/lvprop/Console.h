// How the commands speak: tables and colours for people, JSON for programs, progress on long work. Results go to the
// output, everything else to the error stream.
#pragma once

#include "tools/lvprop/JsonText.h"

#include <chrono>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

enum class Colour { None, Red, Green, Yellow, Bold, Dim };

struct Console {
    std::ostream& out;
    std::ostream& err;
    bool json = false;     ///< results as JSON
    bool colours = false;  ///< only ever true when the output is a terminal
    bool progress = false; ///< only ever true when the error stream is a terminal

    /// The text in a colour, or as it is.
    std::string Paint(Colour colour, std::string_view text) const;

    /// For the report of a command that also writes a file: where that goes to the output, "-", the report goes to the
    /// error stream.
    Console BesideFile(std::string_view file) const;
};

/// Number of columns that UTF-8 text takes: its characters.
size_t ColumnsOf(std::string_view text);

/// One line of at most that many columns: control characters as signs, a longer text cut with "…".
std::string OneLine(std::string_view text, size_t columns);

/// Rows under headings, each column as wide as its widest cell.
class Table {
public:
    struct Column {
        std::string heading;
        bool isNumber = false; ///< right aligned
    };
    struct Cell {
        std::string text;
        Colour colour = Colour::None;
        Cell(std::string cellText, Colour cellColour = Colour::None) : text(std::move(cellText)), colour(cellColour) {}
        Cell(const char* cellText) : text(cellText) {}
    };

    explicit Table(std::vector<Column> columns) : m_columns(std::move(columns)) {}
    void Add(std::vector<Cell> row) { m_rows.push_back(std::move(row)); }
    bool IsEmpty() const { return m_rows.empty(); }
    /// Columns without any text are left out.
    void Print(const Console& console) const;

private:
    std::vector<Column> m_columns;
    std::vector<std::vector<Cell>> m_rows;
};

/// A count that is rewritten in place, at most ten times a second, and wiped at the end. Silent without a terminal.
class Progress {
public:
    Progress(const Console& console, std::string what) : m_console(console), m_what(std::move(what)) {}
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Step(size_t done);

private:
    const Console& m_console;
    std::string m_what;
    std::chrono::steady_clock::time_point m_last;
    bool m_isShown = false;
};

/// "1 record", "2 records"
std::string Counted(size_t count, const std::string& what);

/// The shortest text that reads back as the same number.
std::string NumberText(double number);
