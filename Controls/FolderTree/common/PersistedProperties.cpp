// PersistedProperties: the saved members of the table, to and from a bag.
#include "common/PersistedProperties.h"

#include "common/Members.h"

namespace foldertree {

using automation::ObjectRef;
using automation::Value;

namespace {

/// Reads one setting through `take`; when that fails, `useDefault` and an error line.
template <class Take, class Default>
void ReadOne(ControlContext& context, PropertyBag& bag, std::string_view name, Take&& take, Default&& useDefault) {
    useDefault();
    const bool read = Guarded(context, errorLines::readProperties, [&] {
        const Value saved = bag.Read(name);
        context.ThrowIfClosed();
        if (!saved.IsEmpty()) take(saved);
    });
    context.ThrowIfClosed();
    if (!read) useDefault();
}

/// The number that the table keeps for a saved Boolean or number.
int32_t Kept(const Saving& saving, const Value& value) {
    return saving.type == SavedAs::boolean ? static_cast<int32_t>(value.ToBoolean()) : value.ToLong();
}

Value AsSaved(const Saving& saving, int32_t kept) {
    return saving.type == SavedAs::boolean ? Value(kept != 0) : Value(kept);
}

void Write(ControlContext& context, PropertyBag& bag, const MemberInfo& info, const Value& value) {
    Guarded(context, errorLines::writeProperties, [&] { bag.Write(info.name, value); });
    context.ThrowIfClosed();
}

}  // namespace

void ReadPersistedProperties(ControlContext& context, PropertyBag& bag) {
    ObjectRef font;
    for (const MemberInfo* info : SavedMembers()) {
        const Saving& saving = info->saving;
        if (saving.type == SavedAs::font) {
            ReadOne(
                context, bag, info->name, [&](const Value& value) { font = value.RequireObject(); },
                [&] { font = context.AmbientFont(); });
        } else {
            ReadOne(
                context, bag, info->name, [&](const Value& value) { saving.set(context.state, Kept(saving, value)); },
                [&] { saving.set(context.state, saving.defaultValue); });
        }
    }
    if (font != nullptr) context.grid.SetFont(font);
}

void WritePersistedProperties(ControlContext& context, PropertyBag& bag) {
    for (const MemberInfo* info : SavedMembers()) {
        const Saving& saving = info->saving;
        if (saving.type == SavedAs::font) {
            const ObjectRef font = context.grid.Font();
            if (font != context.AmbientFont()) Write(context, bag, *info, font);
        } else if (const int32_t kept = saving.get(context.state); kept != saving.defaultValue) {
            Write(context, bag, *info, AsSaved(saving, kept));
        }
    }
}

}  // namespace foldertree
