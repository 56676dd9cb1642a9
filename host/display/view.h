// The views of the host's screen: one per viewport, each a centre, a height
// in drawing units and a direction, shown in a window of SCREENSIZE pixels.
// VIEWCTR, VIEWSIZE and VIEWDIR read the current one.
#pragma once

namespace lumo::host {

struct View {
    double center[2] = {210, 148.5};   // a new drawing shows its limits
    double height = 297;
    double direction[3] = {0, 0, 1};
};

// The view of the current viewport: model space when TILEMODE is 1, else
// the viewport CVPORT names (1 is paper space itself).
const View& CurrentView();
// Makes `view` current and remembers the one it replaces for ZOOM Previous.
void ChangeView(const View& view);
// Goes back to the view before the last change; false when there is none.
bool PreviousView();
// Fits the box into the window, keeping the window's proportions.
void ZoomToBox(const double min[2], const double max[2]);
// The window's width over its height.
double ScreenAspect();
// Forgets every view, as a new drawing does, and takes the model view the
// drawing was saved with (its active viewport), if it has one.
void ResetViews();

}  // namespace lumo::host
