#include "ViewerModel.h"

#include <GL/gl.h>
#include <GL/glu.h>

namespace qor::viewer {

int ViewerModel::ProcessSelection(unsigned short x, unsigned short y) {
    if (!HasModel(rootModelName)) return 0;
    GLuint buffer[512] = {};
    StartSelection(buffer, 512, x, y);
    // The paint's model-view, placements included, exactly as OnPaint builds it.
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    camera.Apply();
    gluLookAt(0, 1, -3, 0, 0, 0, 0, 0, 1);
    scene.Apply();
    GetModel(rootModelName).ExecuteTransforms();
    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    const GLint hits = glRenderMode(GL_RENDER);
    // The record with the smallest minimum depth is the nearest part.
    int result = 0;
    GLuint nearest = ~0u;
    std::size_t at = 0;
    for (GLint record = 0; record < hits && at + 3 <= 512; ++record) {
        const GLuint names = buffer[at];
        if (at + 3 + names > 512) break;
        if (names > 0 && buffer[at + 3 + names - 1] != 0 && buffer[at + 1] <= nearest) {
            nearest = buffer[at + 1];
            result = static_cast<int>(buffer[at + 3 + names - 1]);
        }
        at += 3 + names;
    }
    return result;
}

}  // namespace qor::viewer
