// Category states and forced visibility, in and out by streams. Both act on the rows that are made next.
#include "viewer/ViewerSource.h"
#include "viewer/prpCollectionViewerCtrl.h"

/// Reads which categories are collapsed. Raises, in this order: null pointer, a failing stream call, a stream that is
/// not binary.
STDMETHODIMP CprpCollectionViewerCtrl::InitCategoryStateMap(IqorStream* StateStream)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::InitCategoryStateMap"), [&](const Checks& require) {
        require.Pointer(StateStream, OLESTR("pIStateStream"), InViewer());
        ReadCategoryStates(*StateStream, m_mapCategoryState);
    });
}

/// Writes which categories are collapsed, in a form with a longer count than is read. Raises, in this order: null
/// pointer, a failing stream call, a stream that is not in memory.
STDMETHODIMP CprpCollectionViewerCtrl::SaveCategoryStateMap(IqorStream* StateStream)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::SaveCategoryStateMap"), [&](const Checks& require) {
        require.Pointer(StateStream, OLESTR("pIStateStream"), InViewer());
        WriteCategoryStates(*StateStream, m_mapCategoryState);
    });
}

/// Reads whose visibility is forced. Events leave such rows alone from now on. Raises: null pointer, a failing stream
/// call.
STDMETHODIMP CprpCollectionViewerCtrl::SetPropVisOverrides(IqorStream* VisOverrideStream)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::SetPropVisOverrides"), [&](const Checks& require) {
        require.Pointer(VisOverrideStream, OLESTR("pIVisOverrideStream"), InViewer());
        m_mapVisOverrides.clear();
        m_mapVisOverrides = ReadVisibilityOverrides(*VisOverrideStream);
    });
}
