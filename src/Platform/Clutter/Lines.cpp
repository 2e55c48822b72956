#include "Platform/Clutter/Lines.h"

#include "Platform/GL/GL.h"

#include <algorithm>

namespace Platform
{

namespace
{

/// One for all lines; it lives as long as the process.
CoglPipeline* Pipeline()
{
    static CoglPipeline* const s_pipeline =
        cogl_pipeline_new(cogl_framebuffer_get_context(cogl_get_draw_framebuffer()));
    return s_pipeline;
}

} // namespace

CLines::~CLines()
{
    if (m_primitive != nullptr)
    {
        cogl_object_unref(m_primitive);
        cogl_object_unref(m_buffer);
    }
}

void CLines::Reserve(std::size_t a_count)
{
    if (a_count <= m_capacity)
    {
        return;
    }
    const std::size_t capacity = std::max(a_count, m_capacity * 2);
    CoglContext* const context = cogl_framebuffer_get_context(cogl_get_draw_framebuffer());
    CoglAttributeBuffer* const buffer = cogl_attribute_buffer_new_with_size(context, capacity * sizeof(SPosition));
    cogl_buffer_set_update_hint(COGL_BUFFER(buffer), COGL_BUFFER_UPDATE_HINT_DYNAMIC);
    CoglAttribute* attribute =
        cogl_attribute_new(buffer, "cogl_position_in", sizeof(SPosition), 0, 2, COGL_ATTRIBUTE_TYPE_FLOAT);
    CoglPrimitive* const primitive =
        cogl_primitive_new_with_attributes(COGL_VERTICES_MODE_LINES, static_cast<int>(capacity), &attribute, 1);
    cogl_object_unref(attribute);
    if (m_primitive != nullptr)
    {
        cogl_object_unref(m_primitive);
        cogl_object_unref(m_buffer);
    }
    m_buffer = buffer;
    m_primitive = primitive;
    m_capacity = capacity;
}

void CLines::Set(std::span<const SPosition> a_ends)
{
    m_count = a_ends.size();
    if (m_count > 0)
    {
        Reserve(m_count);
        cogl_buffer_set_data(COGL_BUFFER(m_buffer), 0, a_ends.data(), a_ends.size_bytes());
        cogl_primitive_set_n_vertices(m_primitive, static_cast<int>(m_count));
    }
}

void CLines::Draw(const ClutterColor& a_colour, float a_width) const
{
    if (m_count == 0)
    {
        return;
    }
    const auto premultiplied = [&a_colour](guint8 a_component)
    { return static_cast<guint8>((a_component * a_colour.alpha + 127) / 255); };
    cogl_pipeline_set_color4ub(Pipeline(), premultiplied(a_colour.red), premultiplied(a_colour.green),
                               premultiplied(a_colour.blue), a_colour.alpha);
    // Cogl knows no line width: what is set stays, for the lines of others too.
    glLineWidth(a_width > 0 ? a_width : 1.0F);
    cogl_framebuffer_draw_primitive(cogl_get_draw_framebuffer(), Pipeline(), m_primitive);
    glLineWidth(1.0F);
}

} // namespace Platform
