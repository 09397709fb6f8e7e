// Going on after a failure: every piece of a row of work is done, and the first failure is raised at the end.
#pragma once

#include <exception>

class FirstFailure {
public:
    template <class Body>
    void Try(const Body& body)
    {
        try {
            body();
        } catch (...) {
            if (!m_failure)
                m_failure = std::current_exception();
        }
    }
    /// Returns when nothing has failed.
    void Raise() const
    {
        if (m_failure)
            std::rethrow_exception(m_failure);
    }

private:
    std::exception_ptr m_failure;
};
