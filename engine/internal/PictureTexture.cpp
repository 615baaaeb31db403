#include "internal/PictureTexture.h"

#include "internal/quad.h"

#include <SFML/Window/Context.hpp>

#include <algorithm>

namespace gw {

namespace {

/// Takes each pixel from the picture as it is.
constexpr const char *SHADER = "uniform sampler2D picture;"
                               "void main() {"
                               "  gl_FragColor = texture2D(picture, gl_TexCoord[0].xy);"
                               "}";

/// Has the graphics card keep the texture as it keeps windows, with blue first. What was
/// in the texture is lost.
void keepLikeWindow(const sf::Texture &texture) {
  constexpr unsigned TEXTURE_2D = 0x0de1; // OpenGL's names
  constexpr int RGBA = 0x1908;
  constexpr unsigned BGRA = 0x80e1;
  constexpr unsigned UNSIGNED_BYTE = 0x1401;
  using TexImage =
      void (*)(unsigned target, int level, int kept_as, int width, int height, int border,
               unsigned format, unsigned type, const void *p_pixels);
  const auto tex_image =
      reinterpret_cast<TexImage>(sf::Context::getFunction("glTexImage2D"));
  if (!tex_image)
    return;
  const sf::Vector2i size(texture.getSize());
  sf::Texture::bind(&texture);
  tex_image(TEXTURE_2D, 0, RGBA, size.x, size.y, 0, BGRA, UNSIGNED_BYTE, nullptr);
  sf::Texture::bind(nullptr);
}

} // namespace

/// The target is cleared only after the upload, which sends off what was drawn before:
/// so clearing and drawing are one piece of work.
bool PictureTexture::draw(sf::RenderTarget &target, const std::uint32_t *p_pixels,
                          sf::Color color, const std::vector<sf::IntRect> &areas) {
  const bool has_picture = !areas.empty() && make();
  if (has_picture) {
    const bool is_whole = isWhole(areas);
    if (is_whole && !shader)
      prepareWhole();
    texture->setSmooth(sf::Vector2i(target.getSize()) != size);
    // One row more on both sides, which a smooth texture looks at as well.
    const sf::IntRect last = areas.back();
    upload(p_pixels, std::max(areas.front().position.y - 1, 0),
           std::min(last.position.y + last.size.y + 1, size.y));
    if (is_whole) {
      drawWhole(target);
      return true;
    }
  }
  target.clear(color);
  if (has_picture)
    drawAreas(target, areas);
  return has_picture || areas.empty();
}

bool PictureTexture::make() {
  if (texture)
    return true;
  texture.emplace();
  if (!texture->resize(sf::Vector2u(sf::Vector2i(stride, size.y))))
    texture.reset();
  return texture.has_value();
}

void PictureTexture::upload(const std::uint32_t *p_pixels, int first_row, int end_row) {
  const auto *p_rows = reinterpret_cast<const std::uint8_t *>(
      p_pixels + static_cast<std::ptrdiff_t>(first_row) * stride);
  texture->update(p_rows, sf::Vector2u(sf::Vector2i(stride, end_row - first_row)),
                  sf::Vector2u(sf::Vector2i(0, first_row)));
}

bool PictureTexture::isWhole(const std::vector<sf::IntRect> &areas) const {
  int pixels = 0;
  for (const sf::IntRect &area : areas)
    pixels += area.size.x * area.size.y;
  return pixels == size.x * size.y;
}

/// With software OpenGL, a rectangle of a texture that is kept like the window, with a
/// shader that only copies, and as a strip of four corners, is copied row by row: a full
/// screen takes a third less. Without one of these three it looks the same. Games without
/// full screens do without: making the shader takes time.
void PictureTexture::prepareWhole() {
  keepLikeWindow(*texture);
  shader.emplace();
  if (sf::Shader::isAvailable() &&
      shader->loadFromMemory(SHADER, sf::Shader::Type::Fragment))
    shader->setUniform("picture", sf::Shader::CurrentTexture);
}

void PictureTexture::drawWhole(sf::RenderTarget &target) {
  sf::RenderStates states(sf::BlendNone);
  states.texture = &*texture;
  states.shader = shader->getNativeHandle() != 0 ? &*shader : nullptr;
  const sf::Vector2f end(size);
  const sf::Vertex strip[] = {{{0, 0}, sf::Color::White, {0, 0}},
                              {{end.x, 0}, sf::Color::White, {end.x, 0}},
                              {{0, end.y}, sf::Color::White, {0, end.y}},
                              {end, sf::Color::White, end}};
  target.draw(strip, 4, sf::PrimitiveType::TriangleStrip, states);
}

void PictureTexture::drawAreas(sf::RenderTarget &target,
                               const std::vector<sf::IntRect> &areas) {
  vertices.clear();
  for (const sf::IntRect &area : areas)
    addQuad(vertices, sf::FloatRect(area), sf::FloatRect(area), sf::Color::White);
  sf::RenderStates states(sf::BlendNone);
  states.texture = &*texture;
  target.draw(vertices.data(), vertices.size(), sf::PrimitiveType::Triangles, states);
}

} // namespace gw
