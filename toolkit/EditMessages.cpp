#include "toolkit/EditMessages.h"

const EditMessages& RegisteredEditMessages()
{
    static const EditMessages messages{RegisterWindowMessageW(OLESTR("LVRegWinMsg_CanCut")),
                                       RegisterWindowMessageW(OLESTR("LVRegWinMsg_CanCopy")),
                                       RegisterWindowMessageW(OLESTR("LVRegWinMsg_CanPaste"))};
    return messages;
}
