// The viewer's view: the library's QorOpenGlModel with a pick that sees each
// part where it is drawn. The control's own pick multiplies placements into
// the projection, so a mate away from its parent is picked away from where it
// shows; a person clicking on a part wants that part.
#pragma once

#include "qor/view3d/QorOpenGlModel.h"

namespace qor::viewer {

class ViewerModel : public QorOpenGlModel {
public:
    // The id of the nearest part under the window point (x, y), or 0.
    int ProcessSelection(unsigned short x, unsigned short y) override;
};

}  // namespace qor::viewer
