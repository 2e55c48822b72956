#include "Platform/Clutter/Actor.h"

#include <initializer_list>

namespace Platform
{

GObject* ConstructWithoutLayout(GType a_type, guint a_count, GObjectConstructParam* a_parameters)
{
    auto* const initiallyUnowned = G_OBJECT_CLASS(g_type_class_peek(G_TYPE_INITIALLY_UNOWNED));
    return initiallyUnowned->constructor(a_type, a_count, a_parameters);
}

void ReturnLength(float a_length, float* a_minimum, float* a_natural)
{
    for (float* result : {a_minimum, a_natural})
    {
        if (result != nullptr)
        {
            *result = a_length;
        }
    }
}

} // namespace Platform
