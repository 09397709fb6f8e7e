#include "benchmarks/Cases.h"

Span& TimedSpan()
{
    static Span s_span;
    return s_span;
}
