#include "arbora/gl/GLBackend.h"

#include <array>
#include <cstddef>
#include <string>
#include <unordered_map>

#include <glad/gl.h>

#include "arbora/base/NkDebugError.h"
#include "arbora/gl/NkGLContext.h"

namespace arbora {

namespace {

// Places of the vertex attributes.
enum Attribute : GLuint {
  POSITION,
  NORMAL,
  TEXTURE,
  COLUMN_0,
  COLUMN_1,
  COLUMN_2,
  DIFFUSE,
  EMISSIVE,
  SPECULAR,
  AMBIENT,
  SETS
};

// Texture units.
enum Unit : GLint { CLIP_UNIT, LIGHT_UNIT, IMAGE_UNIT };

constexpr GLuint kMaxPlanes = 8;

constexpr const char* kVertexShader = R"(
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
layout(location = 2) in vec2 texturePlace;
layout(location = 3) in vec4 column0;
layout(location = 4) in vec4 column1;
layout(location = 5) in vec4 column2;
layout(location = 6) in vec4 diffuse;
layout(location = 7) in vec4 emissive;
layout(location = 8) in vec4 specular;
layout(location = 9) in vec4 ambient;
layout(location = 10) in uvec2 sets;

uniform mat4 worldToClip;

out vec3 worldPlace;
out vec3 worldNormal;
out vec2 imagePlace;
flat out vec4 diffuseColor;
flat out vec3 unlitColor;
flat out vec4 specularColor;
flat out int lightSet;

#ifdef CLIPPED
uniform samplerBuffer clipSets;
out float gl_ClipDistance[8];
#endif

void main() {
  vec4 p = vec4(position, 1.0);
  worldPlace = vec3(dot(p, column0), dot(p, column1), dot(p, column2));
  // The cofactors turn a normal also where the matrix has no inverse, as for a form without depth.
  worldNormal = vec3(dot(cross(column1.xyz, column2.xyz), normal), dot(cross(column2.xyz, column0.xyz), normal),
                     dot(cross(column0.xyz, column1.xyz), normal));
  // Small forms have tiny cofactors.
  float size = max(max(abs(worldNormal.x), abs(worldNormal.y)), abs(worldNormal.z));
  worldNormal = size > 0.0 ? worldNormal / size : vec3(0.0);
  imagePlace = texturePlace;
  diffuseColor = diffuse;
  unlitColor = emissive.rgb + 0.2 * ambient.rgb;
  specularColor = vec4(specular.rgb, specular.a * 128.0);
  lightSet = int(sets.y) * 16;
  gl_Position = worldToClip * vec4(worldPlace, 1.0);
#ifdef CLIPPED
  for (int i = 0; i < 8; ++i)
    gl_ClipDistance[i] = dot(texelFetch(clipSets, int(sets.x) * 8 + i), vec4(worldPlace, 1.0));
#endif
}
)";

constexpr const char* kFragmentShader = R"(
in vec3 worldPlace;
in vec3 worldNormal;
in vec2 imagePlace;
flat in vec4 diffuseColor;
flat in vec3 unlitColor;
flat in vec4 specularColor;
flat in int lightSet;

uniform samplerBuffer lightSets;
uniform vec4 eye;
uniform vec4 headlight;
#ifdef TEXTURED
uniform sampler2D image;
#endif

out vec4 color;

vec3 shade(vec3 light, vec3 lightColor, vec3 n, vec3 v) {
  float facing = dot(n, light);
  if (facing <= 0.0)
    return vec3(0.0);
  float glance = max(dot(n, normalize(light + v)), 0.0);
  vec3 shine = glance > 0.0 ? specularColor.rgb * pow(glance, specularColor.a) : vec3(0.0);
  return lightColor * (diffuseColor.rgb * facing + shine);
}

void main() {
  vec3 v = eye.w > 0.0 ? normalize(eye.xyz - worldPlace) : eye.xyz;
  // Both sides of a face are lit: the normal is the one on the side that is seen.
  vec3 face = cross(dFdx(worldPlace), dFdy(worldPlace));
  if (dot(face, v) < 0.0)
    face = -face;
  vec3 n = dot(worldNormal, worldNormal) > 0.0 ? worldNormal : face;
  n = dot(n, n) > 0.0 ? normalize(n) : v;
  if (dot(n, face) < 0.0)
    n = -n;
  vec3 sum = unlitColor;
  if (headlight.w > 0.0)
    sum += shade(headlight.xyz, vec3(1.0), n, v);
  for (int i = 0; i < 8; ++i) {
    vec4 light = texelFetch(lightSets, lightSet + i);
    if (light.w == 0.0)
      break;
    sum += shade(light.xyz, texelFetch(lightSets, lightSet + 8 + i).rgb, n, v);
  }
  color = vec4(min(sum, vec3(1.0)), diffuseColor.a);
#ifdef TEXTURED
  color *= texture(image, imagePlace);
#endif
}
)";

struct Program {
  GLuint name = 0;
  bool tried = false;
  GLint worldToClip = -1;
  GLint eye = -1;
  GLint headlight = -1;
  std::uint64_t frame = 0; // The frame whose uniforms it has.
};

struct SharedMesh {
  GLuint vertices = 0;
  GLuint indices = 0;
  GLsizei numIndices = 0;
  int uses = 0;
};

struct SharedTexture {
  GLuint name = 0;
  int uses = 0;
};

struct GLBatch {
  std::uint64_t mesh = 0;
  std::uint64_t texture = 0;
  GLuint vertexArray = 0;
  GLuint instances = 0;
  GLuint textureName = 0;
  GLsizei numIndices = 0;
  std::size_t capacity = 0;   // Instances that the buffer has room for.
  std::size_t firstBound = 0; // Instance at which the attributes start.
  bool clipped = false;
  bool transparent = false;
};

struct GLTables {
  std::array<GLuint, 2> buffers{};
  std::array<GLuint, 2> textures{};
  std::array<std::size_t, 2> capacity{}; // In texels.
};

const void* bufferOffset(std::size_t offset) { return reinterpret_cast<const void*>(offset); }

GLsizeiptr byteCount(std::size_t bytes) { return static_cast<GLsizeiptr>(bytes); }

/// Points the per-instance attributes at an instance. OpenGL 3.3 has no other way to start in the middle of a buffer.
void bindInstances(std::size_t first) {
  const std::size_t start = first * sizeof(Instance);
  for (GLuint i = 0; i < 3; ++i) {
    glVertexAttribPointer(COLUMN_0 + i, 4, GL_FLOAT, GL_FALSE, sizeof(Instance),
                          bufferOffset(start + offsetof(Instance, columns) + i * 4 * sizeof(float)));
  }
  constexpr std::size_t kColors[] = {offsetof(Instance, diffuse), offsetof(Instance, emissive),
                                     offsetof(Instance, specular), offsetof(Instance, ambient)};
  for (GLuint i = 0; i < 4; ++i)
    glVertexAttribPointer(DIFFUSE + i, 4, GL_UNSIGNED_BYTE, GL_TRUE, sizeof(Instance),
                          bufferOffset(start + kColors[i]));
  glVertexAttribIPointer(SETS, 2, GL_UNSIGNED_INT, sizeof(Instance), bufferOffset(start + offsetof(Instance, clipSet)));
}

GLuint compileShader(GLenum kind, const std::string& header, const char* text) {
  const GLuint shader = glCreateShader(kind);
  const char* parts[] = {header.c_str(), text};
  glShaderSource(shader, 2, parts, nullptr);
  glCompileShader(shader);
  return shader;
}

bool buildProgram(Program& program, bool clipped, bool textured) {
  program.tried = true;
  const std::string header = std::string("#version 330 core\n") + (clipped ? "#define CLIPPED\n" : "") +
                             (textured ? "#define TEXTURED\n" : "");
  const GLuint vertexShader = compileShader(GL_VERTEX_SHADER, header, kVertexShader);
  const GLuint fragmentShader = compileShader(GL_FRAGMENT_SHADER, header, kFragmentShader);
  const GLuint name = glCreateProgram();
  glAttachShader(name, vertexShader);
  glAttachShader(name, fragmentShader);
  glLinkProgram(name);
  glDeleteShader(vertexShader);
  glDeleteShader(fragmentShader);
  GLint linked = GL_FALSE;
  glGetProgramiv(name, GL_LINK_STATUS, &linked);
  if (linked != GL_TRUE) {
    std::array<char, 1024> log{};
    glGetProgramInfoLog(name, static_cast<GLsizei>(log.size()), nullptr, log.data());
    NkDebugError::post("arbora::GLBackend", "The OpenGL driver refuses a program, so part of the scene isn't drawn: %s",
                       log.data());
    glDeleteProgram(name);
    return false;
  }
  program.name = name;
  program.worldToClip = glGetUniformLocation(name, "worldToClip");
  program.eye = glGetUniformLocation(name, "eye");
  program.headlight = glGetUniformLocation(name, "headlight");
  glUseProgram(name);
  glUniform1i(glGetUniformLocation(name, "clipSets"), CLIP_UNIT);
  glUniform1i(glGetUniformLocation(name, "lightSets"), LIGHT_UNIT);
  glUniform1i(glGetUniformLocation(name, "image"), IMAGE_UNIT);
  return true;
}

GLuint makeTexture(const Texture& texture) {
  const Image& image = *texture.image;
  constexpr GLenum kFormats[] = {GL_RED, GL_RG, GL_RGB, GL_RGBA};
  constexpr GLint kInternal[] = {GL_R8, GL_RG8, GL_RGB8, GL_RGBA8};
  const int last = image.components - 1;
  const std::size_t needed = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) *
                             static_cast<std::size_t>(image.components);
  if (last < 0 || last > 3 || image.pixels.size() < needed) return 0;
  GLint maxSize = 0;
  glGetIntegerv(GL_MAX_TEXTURE_SIZE, &maxSize);
  if (image.width > maxSize || image.height > maxSize) {
    NkDebugError::post("arbora::GLBackend",
                       "A texture of %d by %d pixels is too large; the graphics card takes up to %d", image.width,
                       image.height, maxSize);
    return 0;
  }
  GLuint name = 0;
  glGenTextures(1, &name);
  glActiveTexture(GL_TEXTURE0 + IMAGE_UNIT);
  glBindTexture(GL_TEXTURE_2D, name);
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glTexImage2D(GL_TEXTURE_2D, 0, kInternal[last], image.width, image.height, 0, kFormats[last], GL_UNSIGNED_BYTE,
               image.pixels.data());
  glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
  if (image.components < 3) {
    const GLint swizzle[] = {GL_RED, GL_RED, GL_RED, image.components == 2 ? GL_GREEN : GL_ONE};
    glTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_SWIZZLE_RGBA, swizzle);
  }
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, texture.repeatS ? GL_REPEAT : GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, texture.repeatT ? GL_REPEAT : GL_CLAMP_TO_EDGE);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
  glGenerateMipmap(GL_TEXTURE_2D);
  return name;
}

} // namespace

struct GLBackend::Objects {
  void* context = nullptr; // To which the objects belong.
  Handle nextHandle = 1;
  std::unordered_map<Handle, GLBatch> batches;
  std::unordered_map<Handle, GLTables> tables;
  std::unordered_map<std::uint64_t, SharedMesh> meshes;
  std::unordered_map<std::uint64_t, SharedTexture> textures;
  std::array<std::array<Program, 2>, 2> programs; // [clipped][textured]
  // What waits for a context to be deleted in.
  std::vector<GLuint> deadBuffers;
  std::vector<GLuint> deadTextures;
  std::vector<GLuint> deadVertexArrays;
  // The present frame.
  Frame frame;
  std::uint64_t frameNumber = 0;
  GLuint boundProgram = 0;
  GLuint boundTexture = 0;
  bool clipping = false;
  bool blending = false;

  void load();
  void deleteDead();
  void setClipping(bool flag);
  void setBlending(bool flag);
  bool useProgram(bool clipped, bool textured);
  void releaseBatch(const GLBatch& batch);
  void makeVertexArray(GLBatch& batch, const SharedMesh& mesh);
};

void GLBackend::Objects::load() {
  if (context) return;
  context = NkGLContext::getCurrent();
  loadGL();
}

void GLBackend::Objects::deleteDead() {
  if (!deadBuffers.empty()) glDeleteBuffers(static_cast<GLsizei>(deadBuffers.size()), deadBuffers.data());
  if (!deadTextures.empty()) glDeleteTextures(static_cast<GLsizei>(deadTextures.size()), deadTextures.data());
  if (!deadVertexArrays.empty())
    glDeleteVertexArrays(static_cast<GLsizei>(deadVertexArrays.size()), deadVertexArrays.data());
  deadBuffers.clear();
  deadTextures.clear();
  deadVertexArrays.clear();
}

GLBackend::GLBackend() : m_objects(std::make_unique<Objects>()) {}

GLBackend::~GLBackend() {
  if (!m_objects->context || m_objects->context != NkGLContext::getCurrent()) return;
  for (const auto& [handle, batch] : m_objects->batches) m_objects->releaseBatch(batch);
  m_objects->batches.clear();
  while (!m_objects->tables.empty()) destroyTables(m_objects->tables.begin()->first);
  m_objects->deleteDead();
  for (const auto& row : m_objects->programs) {
    for (const Program& program : row) glDeleteProgram(program.name);
  }
}

// Batches

RenderBackend::Handle GLBackend::createBatch(const BatchDescription& description) {
  Objects& objects = *m_objects;
  objects.load();
  GLBatch batch;
  batch.clipped = description.clipped;
  batch.transparent = description.transparent;

  // Buffers are bound below; no vertex array that somebody else left bound may take them.
  glBindVertexArray(0);
  batch.mesh = description.mesh->getId();
  SharedMesh& mesh = objects.meshes[batch.mesh];
  if (mesh.uses++ == 0) {
    static_assert(sizeof(Vertex) == 8 * sizeof(float));
    const std::vector<Vertex>& vertices = description.mesh->getVertices();
    const std::vector<std::uint32_t>& indices = description.mesh->getIndices();
    glGenBuffers(1, &mesh.vertices);
    glBindBuffer(GL_ARRAY_BUFFER, mesh.vertices);
    glBufferData(GL_ARRAY_BUFFER, byteCount(vertices.size() * sizeof(Vertex)), vertices.data(), GL_STATIC_DRAW);
    glGenBuffers(1, &mesh.indices);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, mesh.indices);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, byteCount(indices.size() * sizeof(std::uint32_t)), indices.data(),
                 GL_STATIC_DRAW);
    mesh.numIndices = static_cast<GLsizei>(indices.size());
  }
  if (description.texture.id) {
    batch.texture = description.texture.id;
    SharedTexture& texture = objects.textures[batch.texture];
    if (texture.uses++ == 0 && description.texture.image) texture.name = makeTexture(description.texture);
    batch.textureName = texture.name;
  }
  objects.makeVertexArray(batch, mesh);
  objects.batches.emplace(objects.nextHandle, batch);
  return objects.nextHandle++;
}

void GLBackend::Objects::makeVertexArray(GLBatch& batch, const SharedMesh& mesh) {
  batch.numIndices = mesh.numIndices;
  glGenBuffers(1, &batch.instances);
  glGenVertexArrays(1, &batch.vertexArray);
  glBindVertexArray(batch.vertexArray);
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, mesh.indices);
  glBindBuffer(GL_ARRAY_BUFFER, mesh.vertices);
  glVertexAttribPointer(POSITION, 3, GL_FLOAT, GL_FALSE, sizeof(Vertex), bufferOffset(0));
  glVertexAttribPointer(NORMAL, 3, GL_FLOAT, GL_FALSE, sizeof(Vertex), bufferOffset(3 * sizeof(float)));
  glVertexAttribPointer(TEXTURE, 2, GL_FLOAT, GL_FALSE, sizeof(Vertex), bufferOffset(6 * sizeof(float)));
  glBindBuffer(GL_ARRAY_BUFFER, batch.instances);
  bindInstances(0);
  for (GLuint attribute = POSITION; attribute <= SETS; ++attribute) {
    glEnableVertexAttribArray(attribute);
    if (attribute >= COLUMN_0) glVertexAttribDivisor(attribute, 1);
  }
  glBindVertexArray(0);
}

void GLBackend::Objects::releaseBatch(const GLBatch& batch) {
  deadVertexArrays.push_back(batch.vertexArray);
  deadBuffers.push_back(batch.instances);
  const auto mesh = meshes.find(batch.mesh);
  if (--mesh->second.uses == 0) {
    deadBuffers.push_back(mesh->second.vertices);
    deadBuffers.push_back(mesh->second.indices);
    meshes.erase(mesh);
  }
  const auto texture = textures.find(batch.texture);
  if (texture != textures.end() && --texture->second.uses == 0) {
    deadTextures.push_back(texture->second.name);
    textures.erase(texture);
  }
}

void GLBackend::destroyBatch(Handle handle) {
  const auto it = m_objects->batches.find(handle);
  if (it == m_objects->batches.end()) return;
  m_objects->releaseBatch(it->second);
  m_objects->batches.erase(it);
}

void GLBackend::updateBatch(Handle handle, const std::vector<Instance>& instances, const std::vector<Range>& changed) {
  const auto it = m_objects->batches.find(handle);
  if (it == m_objects->batches.end()) return;
  GLBatch& batch = it->second;
  glBindBuffer(GL_ARRAY_BUFFER, batch.instances);
  if (instances.size() > batch.capacity) {
    batch.capacity = instances.size() + instances.size() / 2;
    glBufferData(GL_ARRAY_BUFFER, byteCount(batch.capacity * sizeof(Instance)), nullptr, GL_DYNAMIC_DRAW);
    glBufferSubData(GL_ARRAY_BUFFER, 0, byteCount(instances.size() * sizeof(Instance)), instances.data());
    return;
  }
  for (const Range& range : changed) {
    glBufferSubData(GL_ARRAY_BUFFER, byteCount(range.first * sizeof(Instance)),
                    byteCount(range.count * sizeof(Instance)), instances.data() + range.first);
  }
}

// Sets

RenderBackend::Handle GLBackend::createTables() {
  m_objects->load();
  GLTables tables;
  glGenBuffers(2, tables.buffers.data());
  glGenTextures(2, tables.textures.data());
  m_objects->tables.emplace(m_objects->nextHandle, tables);
  return m_objects->nextHandle++;
}

void GLBackend::destroyTables(Handle handle) {
  const auto it = m_objects->tables.find(handle);
  if (it == m_objects->tables.end()) return;
  const GLTables& tables = it->second;
  m_objects->deadBuffers.insert(m_objects->deadBuffers.end(), tables.buffers.begin(), tables.buffers.end());
  m_objects->deadTextures.insert(m_objects->deadTextures.end(), tables.textures.begin(), tables.textures.end());
  m_objects->tables.erase(it);
}

void GLBackend::updateTable(Handle handle, SetKind kind, const std::vector<NbVec4f>& texels, const Range& changed) {
  const auto it = m_objects->tables.find(handle);
  if (it == m_objects->tables.end()) return;
  static_assert(sizeof(NbVec4f) == 4 * sizeof(float));
  GLTables& tables = it->second;
  glBindBuffer(GL_TEXTURE_BUFFER, tables.buffers[kind]);
  if (texels.size() > tables.capacity[kind]) {
    tables.capacity[kind] = texels.size() + texels.size() / 2;
    glBufferData(GL_TEXTURE_BUFFER, byteCount(tables.capacity[kind] * sizeof(NbVec4f)), nullptr, GL_DYNAMIC_DRAW);
    glBufferSubData(GL_TEXTURE_BUFFER, 0, byteCount(texels.size() * sizeof(NbVec4f)), texels.data());
    glActiveTexture(GL_TEXTURE0 + (kind == CLIP_SETS ? CLIP_UNIT : LIGHT_UNIT));
    glBindTexture(GL_TEXTURE_BUFFER, tables.textures[kind]);
    glTexBuffer(GL_TEXTURE_BUFFER, GL_RGBA32F, tables.buffers[kind]);
  } else {
    glBufferSubData(GL_TEXTURE_BUFFER, byteCount(changed.first * sizeof(NbVec4f)),
                    byteCount(changed.count * sizeof(NbVec4f)), texels.data() + changed.first);
  }
}

// Frames

void GLBackend::Objects::setClipping(bool flag) {
  if (clipping == flag) return;
  clipping = flag;
  for (GLuint i = 0; i < kMaxPlanes; ++i) flag ? glEnable(GL_CLIP_DISTANCE0 + i) : glDisable(GL_CLIP_DISTANCE0 + i);
}

void GLBackend::Objects::setBlending(bool flag) {
  if (blending == flag) return;
  blending = flag;
  flag ? glEnable(GL_BLEND) : glDisable(GL_BLEND);
  // What is behind something transparent may be drawn in front of it later, where they pass through each other.
  glDepthMask(flag ? GL_FALSE : GL_TRUE);
}

bool GLBackend::Objects::useProgram(bool clipped, bool textured) {
  Program& program = programs[clipped ? 1 : 0][textured ? 1 : 0];
  if (!program.tried && !buildProgram(program, clipped, textured)) return false;
  if (program.name == 0) return false;
  if (boundProgram != program.name || program.frame != frameNumber) {
    glUseProgram(program.name);
    boundProgram = program.name;
  }
  if (program.frame != frameNumber) {
    program.frame = frameNumber;
    // The rows of a matrix for row vectors are the columns of one for column vectors.
    glUniformMatrix4fv(program.worldToClip, 1, GL_FALSE, frame.worldToClip.getValue());
    glUniform4fv(program.eye, 1, frame.eye.getValue());
    const NbVec3f& towards = frame.towardsViewer;
    glUniform4f(program.headlight, towards[0], towards[1], towards[2], frame.headlight ? 1.0f : 0.0f);
  }
  return true;
}

void GLBackend::beginFrame(const Frame& frame, Handle tables) {
  Objects& objects = *m_objects;
  objects.deleteDead();
  objects.frame = frame;
  ++objects.frameNumber;
  objects.boundProgram = 0;
  objects.boundTexture = 0;
  const NbVec2i32& origin = frame.viewport.getViewportOriginPixels();
  const NbVec2i32& size = frame.viewport.getViewportSizePixels();
  glViewport(origin[0], origin[1], size[0], size[1]);
  if (frame.clear) {
    glEnable(GL_SCISSOR_TEST);
    glScissor(origin[0], origin[1], size[0], size[1]);
    glClearColor(frame.clearColor[0], frame.clearColor[1], frame.clearColor[2], frame.clearColor[3]);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glDisable(GL_SCISSOR_TEST);
  }
  glEnable(GL_DEPTH_TEST);
  glDepthFunc(GL_LEQUAL);
  // The result stays opaque where it was: the opacity adds up.
  glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
  const auto it = objects.tables.find(tables);
  if (it == objects.tables.end()) return;
  glActiveTexture(GL_TEXTURE0 + CLIP_UNIT);
  glBindTexture(GL_TEXTURE_BUFFER, it->second.textures[CLIP_SETS]);
  glActiveTexture(GL_TEXTURE0 + LIGHT_UNIT);
  glBindTexture(GL_TEXTURE_BUFFER, it->second.textures[LIGHT_SETS]);
}

void GLBackend::drawBatch(Handle handle, std::size_t first, std::size_t count) {
  Objects& objects = *m_objects;
  const auto it = objects.batches.find(handle);
  if (it == objects.batches.end()) return;
  GLBatch& batch = it->second;
  if (!objects.useProgram(batch.clipped, batch.textureName != 0)) return;
  objects.setClipping(batch.clipped);
  objects.setBlending(batch.transparent);
  if (batch.textureName != 0 && batch.textureName != objects.boundTexture) {
    glActiveTexture(GL_TEXTURE0 + IMAGE_UNIT);
    glBindTexture(GL_TEXTURE_2D, batch.textureName);
    objects.boundTexture = batch.textureName;
  }
  glBindVertexArray(batch.vertexArray);
  if (batch.firstBound != first) {
    glBindBuffer(GL_ARRAY_BUFFER, batch.instances);
    bindInstances(first);
    batch.firstBound = first;
  }
  glDrawElementsInstanced(GL_TRIANGLES, batch.numIndices, GL_UNSIGNED_INT, nullptr, static_cast<GLsizei>(count));
}

void GLBackend::endFrame() {
  m_objects->setClipping(false);
  m_objects->setBlending(false);
  glDisable(GL_DEPTH_TEST);
  glDepthFunc(GL_LESS);
  glBindVertexArray(0);
  glUseProgram(0);
  glActiveTexture(GL_TEXTURE0);
}

} // namespace arbora
