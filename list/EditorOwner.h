// An item with editor windows, as far as the list deals with them when the item goes.
#pragma once

class EditorOwner {
public:
    /// Closes all editor windows without a commit; the property may be gone already.
    virtual void AbandonEditors() noexcept = 0;

protected:
    ~EditorOwner() = default;
};
