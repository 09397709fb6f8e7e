// A text file that finds out its own encoding: 16-bit text behind a byte-order mark, or narrow text without one.
#pragma once

#include "platform/mfc/StdioFile.h"

class ClvuStdioFile : public CStdioFile {
public:
    /// Looks at the file before it opens it as asked: one that begins FF FE is 16-bit text, whatever the flags say,
    /// and is opened binary; one with other content is narrow. An empty one takes the encoding that m_bUnicode had.
    /// For the look a write-only request is widened to reading, so such a file must be readable as well.
    BOOL Open(const OLECHAR* lpszFileName, UINT nOpenFlags, CFileException* pError = nullptr) override;

    /// Writes in the encoding of the file. At position 0 of a 16-bit file the mark goes first.
    void WriteString(TextView text) override;

    /// Reads up to a line feed, which is left out, or to the end; the mark is no part of the first line.
    /// A carriage return ahead of the line feed stays in 16-bit text, which is read as it is.
    BOOL ReadString(Text& rString) override;

    /// The file holds 16-bit text. Set before Open it chooses the encoding of a file that is empty.
    bool m_bUnicode = false;

private:
    BOOL OpenAs(const OLECHAR* fileName, UINT flags, bool bUnicode, CFileException* error);
};
