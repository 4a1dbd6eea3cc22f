// The 3-D view without a window: models and their readers, the camera and
// scene matrices, fonts, the view control that draws into the current
// OpenGL context, and an offscreen context. The wxGLCanvas window that hosts
// the view is in Qor::gui (qor/view3d/wx/).
#pragma once

#include "qor/platform/WinGeometry.h"
#include "qor/view3d/BinaryModel.h"
#include "qor/view3d/Camera.h"
#include "qor/view3d/Geometry.h"
#include "qor/view3d/GlFonts.h"
#include "qor/view3d/GlMatrix.h"
#include "qor/view3d/GlViewHost.h"
#include "qor/view3d/Material.h"
#include "qor/view3d/Model.h"
#include "qor/view3d/ModelFiles.h"
#include "qor/view3d/OffscreenGlContext.h"
#include "qor/view3d/Png.h"
#include "qor/view3d/QorOpenGlBase.h"
#include "qor/view3d/QorOpenGlModel.h"
#include "qor/view3d/Resources.h"
#include "qor/view3d/VRMLModel.h"
#include "qor/view3d/Welding.h"
