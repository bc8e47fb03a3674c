#include "lookups/json/jsonbag.h"

#include "lookups/json/jsonerror.h"
#include "lookups/json/jsonreader.h"
#include "lookups/json/jsonwriter.h"

namespace {

/// Bags within bags are destroyed one within the other, which a chain of any length would carry beyond the
/// stack: from a certain depth on their values wait here until the outermost is through.
struct Destruction
{
    int depth = 0;
    std::vector<std::vector<JsonValue>> waiting;
};

thread_local Destruction* destruction = nullptr;

void destroy(std::vector<JsonValue> values)
{
    constexpr int deep = 200;
    if (!destruction) {
        Destruction outermost;
        destruction = &outermost;
        values.clear();
        while (!outermost.waiting.empty()) {
            const std::vector<JsonValue> next = std::move(outermost.waiting.back());
            outermost.waiting.pop_back();
        }
        destruction = nullptr;
    } else if (destruction->depth == deep) {
        destruction->waiting.push_back(std::move(values));
    } else {
        ++destruction->depth;
        values.clear();
        --destruction->depth;
    }
}

} // namespace

JsonBag::~JsonBag()
{
    if (items_.count() > 0)
        destroy(items_.take());
}

void JsonBag::setIsArray(bool array)
{
    if (Count() > 0)
        JsonError::fail(5, "Cannot change IsArray setting after items have been added");
    items_.take(); // the names that removed items may have left
    isArray_ = array;
}

JsonValue JsonBag::Item(const JsonKey& key) const
{
    if (key.isNull())
        JsonError::fail(94, "Key must be String or an index)");
    if (key.isIndex())
        return items_.at(positionOf(key.index())).detached();
    if (isArray_)
        JsonError::fail(5, "Array values can only be acessed by index");
    const JsonValue* value = items_.find(key.name());
    if (!value)
        JsonError::fail(5, "Invalid procedure call or argument");
    return value->detached();
}

void JsonBag::setItem(const JsonKey& key, const JsonValue& value)
{
    if (!isArray_) {
        if (!key.isName())
            JsonError::fail(5, "Object values can only be changed or added by key not by index");
        items_.put(key.name().toString(), value);
        return;
    }
    if (key.isName())
        JsonError::fail(5, "Array values can only be changed by index or added via Null");
    if (key.isNull() || key.index() > Count())
        items_.append(value);
    else
        items_.replace(positionOf(key.index()), value);
}

JsonBag& JsonBag::AddNewArray(const JsonKey& key)
{
    return add(key, true);
}

JsonBag& JsonBag::AddNewObject(const JsonKey& key)
{
    return add(key, false);
}

JsonBag& JsonBag::add(const JsonKey& key, bool array)
{
    const auto bag = std::make_shared<JsonBag>();
    bag->isArray_ = array;
    setItem(key, bag);
    return *bag;
}

QString JsonBag::JSON() const
{
    return JsonWriter(Whitespace).write(*this);
}

void JsonBag::setJSON(const QString& text)
{
    Clear();
    JsonReader(text, decimalMode_).read(*this);
}

QString JsonBag::Name(qsizetype index) const
{
    if (isArray_)
        JsonError::fail(5, "Array items do not have names");
    return items_.nameAt(positionOf(index));
}

QStringList JsonBag::NewEnum() const
{
    if (isArray_)
        JsonError::fail(5, "Arrays must be iterated using index values");
    QStringList names;
    if (const JsonNames* const all = items_.names())
        for (std::size_t place = 0; place < all->size(); ++place)
            names << all->at(place);
    return names;
}

bool JsonBag::Exists(const JsonKey& key) const
{
    return !isArray_ && key.isIndex() && holds(key.index());
}

void JsonBag::Remove(const JsonKey& key)
{
    if (key.isIndex() && holds(key.index()))
        items_.removeAt(positionOf(key.index()));
    if (!key.isName())
        return;
    if (isArray_)
        JsonError::fail(5, "Must remove by index for arrays");
    items_.remove(key.name());
}

void JsonBag::Clear()
{
    destroy(items_.take());
    isArray_ = false;
}

std::size_t JsonBag::positionOf(qsizetype index) const
{
    if (!holds(index))
        JsonError::fail(9, "Subscript out of range");
    return static_cast<std::size_t>(index - 1);
}
