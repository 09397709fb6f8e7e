// CFileException: why a file operation failed. Thrown by value.
#pragma once

#include "platform/com/Ole.h"

#include <utility>

class CFileException {
public:
    enum Cause {
        none,
        generic,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    CFileException() = default;
    CFileException(Cause cause, LONG lOsError, Text strFileName)
        : m_cause(cause), m_lOsError(lOsError), m_strFileName(std::move(strFileName))
    {
    }

    Cause m_cause = none;
    LONG m_lOsError = 0; ///< the system's own number: a last error on Windows, an errno natively
    Text m_strFileName;
};
