#include "arbora/gl/NkOffscreenRenderer.h"

#include <algorithm>
#include <optional>
#include <vector>

#include <glad/gl.h>

#include "arbora/base/NkDebugError.h"
#include "arbora/gl/GLBackend.h"
#include "arbora/gl/NkGLContext.h"
#include "arbora/gl/PngWriter.h"
#include "arbora/scene/NkGLRenderAction.h"

/// The context with the two framebuffers: one with several samples for the drawing, one with the picture.
struct NkOffscreenRenderer::Target {
  explicit Target(const NbViewportRegion& viewport) : action(viewport) { action.setClearing(false); }

  std::unique_ptr<NkGLContext> context;
  bool failed = false;
  NbColor background;
  float alpha = 1.0f;
  Components components = RGBA;
  int samples = 4;
  NbVec2i32 size; // Of the framebuffers; 0 before they are made.
  bool sizeFailed = false;
  GLuint drawing = 0;
  GLuint picture = 0;
  GLuint drawingColor = 0;
  GLuint drawingDepth = 0;
  GLuint pictureColor = 0;
  std::vector<unsigned char> pixels;
  NbVec2i32 pixelsSize;
  Components pixelsComponents = RGBA;
  std::optional<arbora::GLBackend> backend;
  NkGLRenderAction action;

  bool makeContext();
  bool makeFramebuffers(const NbVec2i32& wanted);
  void freeFramebuffers();
};

bool NkOffscreenRenderer::Target::makeContext() {
  if (context) return true;
  if (failed) return false;
  NbString why;
  context = NkGLContext::createOffscreen(why);
  if (context) {
    action.setBackend(&backend.emplace());
    return true;
  }
  failed = true;
  NkDebugError::post("NkOffscreenRenderer::render", "%s", why.toLatin1().c_str());
  return false;
}

bool NkOffscreenRenderer::Target::makeFramebuffers(const NbVec2i32& wanted) {
  if (drawing && size == wanted) return true;
  if (sizeFailed && size == wanted) return false;
  freeFramebuffers();
  size = wanted;
  GLint maxSize = 0;
  GLint maxSamples = 0;
  glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &maxSize);
  glGetIntegerv(GL_MAX_SAMPLES, &maxSamples);
  const GLsizei used = samples > 1 ? std::min(samples, static_cast<int>(maxSamples)) : 0;
  bool complete = size[0] <= maxSize && size[1] <= maxSize;
  if (complete) {
    while (glGetError() != GL_NO_ERROR) {
    }
    glGenFramebuffers(1, &drawing);
    glGenFramebuffers(1, &picture);
    const auto attach = [this](GLuint framebuffer, GLuint& buffer, GLenum format, GLsizei count, GLenum place) {
      glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
      glGenRenderbuffers(1, &buffer);
      glBindRenderbuffer(GL_RENDERBUFFER, buffer);
      glRenderbufferStorageMultisample(GL_RENDERBUFFER, count, format, size[0], size[1]);
      glFramebufferRenderbuffer(GL_FRAMEBUFFER, place, GL_RENDERBUFFER, buffer);
    };
    attach(picture, pictureColor, GL_RGBA8, 0, GL_COLOR_ATTACHMENT0);
    complete = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    attach(drawing, drawingColor, GL_RGBA8, used, GL_COLOR_ATTACHMENT0);
    attach(drawing, drawingDepth, GL_DEPTH_COMPONENT24, used, GL_DEPTH_ATTACHMENT);
    complete = complete && glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    complete = complete && glGetError() == GL_NO_ERROR;
  }
  sizeFailed = !complete;
  if (complete) return true;
  freeFramebuffers();
  NkDebugError::post("NkOffscreenRenderer::render",
                     "No picture of %d by %d pixels can be made; OpenGL takes up to %d by %d here", size[0], size[1],
                     maxSize, maxSize);
  return false;
}

void NkOffscreenRenderer::Target::freeFramebuffers() {
  if (!drawing) return;
  glDeleteFramebuffers(1, &drawing);
  glDeleteFramebuffers(1, &picture);
  glDeleteRenderbuffers(1, &drawingColor);
  glDeleteRenderbuffers(1, &drawingDepth);
  glDeleteRenderbuffers(1, &pictureColor);
  drawing = picture = drawingColor = drawingDepth = pictureColor = 0;
}

NkOffscreenRenderer::NkOffscreenRenderer(const NbViewportRegion& viewport)
    : m_target(std::make_unique<Target>(viewport)) {}

NkOffscreenRenderer::~NkOffscreenRenderer() {
  if (!m_target->context) return;
  const NkGLContext::Scope scope(*m_target->context);
  m_target->action.setBackend(nullptr);
  if (!scope.isCurrent()) return;
  m_target->freeFramebuffers();
  m_target->backend.reset();
}

void NkOffscreenRenderer::setViewportRegion(const NbViewportRegion& viewport) {
  m_target->action.setViewportRegion(viewport);
}

const NbViewportRegion& NkOffscreenRenderer::getViewportRegion() const { return m_target->action.getViewportRegion(); }

void NkOffscreenRenderer::setBackgroundColor(const NbColor& color, float alpha) {
  m_target->background = color;
  m_target->alpha = alpha;
}

void NkOffscreenRenderer::setComponents(Components components) { m_target->components = components; }

NkOffscreenRenderer::Components NkOffscreenRenderer::getComponents() const { return m_target->components; }

void NkOffscreenRenderer::setNumSamples(int samples) {
  if (m_target->samples == samples) return;
  m_target->samples = samples;
  m_target->size = NbVec2i32();
}

template <class What>
bool NkOffscreenRenderer::renderAny(What* what) {
  Target& target = *m_target;
  if (!what || !target.makeContext()) return false;
  const NkGLContext::Scope scope(*target.context);
  if (!scope.isCurrent()) return false;
  const NbVec2i32 size = getViewportRegion().getWindowSize();
  if (!target.makeFramebuffers(size)) return false;

  glBindFramebuffer(GL_FRAMEBUFFER, target.drawing);
  glClearColor(target.background[0], target.background[1], target.background[2], target.alpha);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  target.action.apply(what);

  glBindFramebuffer(GL_READ_FRAMEBUFFER, target.drawing);
  glBindFramebuffer(GL_DRAW_FRAMEBUFFER, target.picture);
  glBlitFramebuffer(0, 0, size[0], size[1], 0, 0, size[0], size[1], GL_COLOR_BUFFER_BIT, GL_NEAREST);
  glBindFramebuffer(GL_READ_FRAMEBUFFER, target.picture);
  target.pixelsSize = size;
  target.pixelsComponents = target.components;
  target.pixels.resize(static_cast<std::size_t>(size[0]) * static_cast<std::size_t>(size[1]) *
                       static_cast<std::size_t>(target.components));
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, size[0], size[1], target.components == RGB ? GL_RGB : GL_RGBA, GL_UNSIGNED_BYTE,
               target.pixels.data());
  return true;
}

bool NkOffscreenRenderer::render(NkNode* root) { return renderAny(root); }

bool NkOffscreenRenderer::render(NkPath* path) { return renderAny(path); }

const unsigned char* NkOffscreenRenderer::getBuffer() const {
  return m_target->pixels.empty() ? nullptr : m_target->pixels.data();
}

bool NkOffscreenRenderer::writePng(const NbString& path) const {
  constexpr const char* kLocation = "NkOffscreenRenderer::writePng";
  const Target& target = *m_target;
  if (target.pixels.empty()) {
    NkDebugError::post(kLocation, "There is no picture yet");
    return false;
  }
  return arbora::writePng(path, target.pixels.data(), target.pixelsSize, target.pixelsComponents, kLocation);
}

NkGLRenderAction* NkOffscreenRenderer::getGLRenderAction() const { return &m_target->action; }
