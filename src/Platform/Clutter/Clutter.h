#pragma once

/// The scene graph as the toolkit calls it: Debian's Clutter 1.26 and Cogl 1.22, and under their old names the calls
/// of the 0.8 series that these have lost. No source of the toolkit includes Clutter or Cogl by another way.

#include <clutter/clutter.h>
#include <cogl/cogl.h>

// Cogl still knows these two names, as macros that would silently rename our functions.
#undef cogl_color
#undef cogl_texture_multiple_rectangles

/// Makes a_colour, which is not premultiplied, the current colour: it modulates every textured quad and fills every
/// rectangle drawn after it.
void cogl_color(const ClutterColor* a_colour);

/// The current colour, as last set by cogl_color; opaque white at first.
ClutterColor cogl_current_color();

/// Draws a_count quads of a_texture, modulated by the current colour, in the coordinates of the current matrix.
/// a_vertices holds eight 16.16 fixed-point values a quad: x1, y1, x2, y2, tx1, ty1, tx2, ty2, with the texture
/// coordinates running from 0 to 1. A null texture or a count of 0 draws nothing.
void cogl_texture_multiple_rectangles(CoglHandle a_texture, const CoglFixed* a_vertices, guint a_count);

/// Fills a rectangle, given in 16.16 fixed point, with the current source colour.
void cogl_rectanglex(CoglFixed a_x, CoglFixed a_y, CoglFixed a_width, CoglFixed a_height);

/// Loads an image file as a texture, which the caller owns. Null, with a_error set, if that fails. a_maxWaste and
/// a_autoMipmap are without effect: how a texture is sliced is Cogl's affair, and there are always mipmaps.
CoglHandle cogl_texture_new_from_file(const char* a_path, gint a_maxWaste, gboolean a_autoMipmap,
                                      CoglPixelFormat a_internalFormat, GError** a_error);

/// Makes a texture, which the caller owns, from pixels in memory: A_8, RGB_888 or RGBA_8888; a row stride of 0 means
/// rows without padding.
CoglHandle cogl_texture_new_from_data(guint a_width, guint a_height, gint a_maxWaste, gboolean a_autoMipmap,
                                      CoglPixelFormat a_format, CoglPixelFormat a_internalFormat, guint a_rowStride,
                                      const guchar* a_data);

namespace Platform
{

class CImage;

/// Makes a texture, which the caller owns, from pixels of one byte of alpha, of three of colour, or of four with the
/// colours premultiplied; null if that fails, as for an image without pixels.
CoglHandle NewTexture(CImage a_image, CoglPixelFormat a_internalFormat);

} // namespace Platform

/// Gives up the caller's reference on a texture, null included. A drawn texture and its pipeline hold one another, so
/// dropping the reference alone would leave both alive.
void cogl_texture_release(CoglHandle a_texture);

/// 16.16 fixed point, rounded to nearest; what it can't tell becomes the nearest that it can, and no number 0.
CoglFixed clutter_double_to_fixed(double a_value);

/// Puts an actor on top of a container's other children, in a time that doesn't grow with their number, as that of
/// clutter_container_add_actor does.
inline void clutter_container_add_on_top(ClutterActor* a_container, ClutterActor* a_actor)
{
    clutter_actor_insert_child_above(a_container, a_actor, nullptr);
}

inline guint clutter_key_event_symbol(ClutterKeyEvent* a_event)
{
    return clutter_event_get_key_symbol(reinterpret_cast<ClutterEvent*>(a_event));
}
