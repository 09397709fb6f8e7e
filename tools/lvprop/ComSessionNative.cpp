// Natively the classes are part of the program.
#include "tools/lvprop/ComSession.h"

ComSession::ComSession()
{
    lumevor::Check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
}

ComSession::~ComSession()
{
    CoUninitialize();
}
