#pragma once

#include "lookups/json/jsonitems.h"
#include "lookups/json/jsonvalue.h"

#include <QString>
#include <QStringList>
#include <memory>

using namespace Qt::StringLiterals;

/// What an item is called by: nothing (null), an index, or a name. It views the name's text, which must
/// outlive it.
class JsonKey
{
public:
    JsonKey() = default;
    JsonKey(std::nullptr_t) {}
    template <std::integral Index>
    requires(!std::same_as<Index, bool>) JsonKey(Index index)
        : kind_(Kind::Index), index_(static_cast<qsizetype>(index))
    {
    }
    JsonKey(const QString& name) : kind_(Kind::Name), name_(name) {}
    JsonKey(QStringView name) : kind_(Kind::Name), name_(name) {}
    JsonKey(const char16_t* name) : kind_(Kind::Name), name_(name) {}

    bool isNull() const { return kind_ == Kind::Null; }
    bool isIndex() const { return kind_ == Kind::Index; }
    bool isName() const { return kind_ == Kind::Name; }
    qsizetype index() const { return index_; }
    QStringView name() const { return name_; }

private:
    enum class Kind
    {
        Null,
        Index,
        Name
    };
    Kind kind_ = Kind::Null;
    qsizetype index_ = 0;
    QStringView name_;
};

/// A JSON object or array in memory, read from text and written as text. Objects and arrays within it are
/// further bags, shared with whoever holds them. Items are numbered from 1, in the order of their insertion;
/// names are case sensitive. Texts are sequences of UTF-16 code units, unpaired surrogates included.
///
/// Failures are RuntimeError with the source "JsonBag". Besides those told below: 5 for a name that no item
/// has, 9 for an index that no item has.
class JsonBag
{
public:
    /// So many levels of bags within each other are read and written; a deeper text or bag (as one that holds
    /// itself) is error 28.
    static constexpr int deepest = 1000;

    JsonBag() = default;
    ~JsonBag();
    JsonBag(const JsonBag&) = delete;
    JsonBag& operator=(const JsonBag&) = delete;

    /// The text is written with an item a line and four blanks a level.
    bool Whitespace = false;

    qsizetype Count() const { return qsizetype(items_.count()); }

    /// Numbers are read as Decimal with 28 significant digits in the place of double, here and in the bags
    /// below that reading makes.
    bool DecimalMode() const { return decimalMode_; }
    void setDecimalMode(bool on) { decimalMode_ = on; }

    bool IsArray() const { return isArray_; }
    /// Error 5 once there are items.
    void setIsArray(bool array);

    /// Error 94 without a key, 5 for a name on an array.
    JsonValue Item(const JsonKey& key = {}) const;
    /// On an array: no key, or an index greater than Count, appends, and an index replaces the item there.
    /// On an object: adds the item under the name; one that has the name goes, so that the item stands at the
    /// end. Error 5 for a name on an array and for anything but a name on an object.
    void setItem(const JsonKey& key, const JsonValue& value);

    /// An empty bag as a new item, as setItem puts it; good as long as the item is there.
    JsonBag& AddNewArray(const JsonKey& key = {});
    JsonBag& AddNewObject(const JsonKey& key = {});

    /// The text of the whole. Control and invisible characters, and surrogates, are written as \u escapes.
    /// Error 51 for a number that is not finite and for a value that JSON has no form for.
    QString JSON() const;
    /// Reads an object or array in the place of what is there. What stands behind its closing bracket is
    /// ignored, and so are superfluous commas, but for one in front of an object's first item. Where a name
    /// comes twice the later item counts.
    ///
    /// Error 13 tells the position, from 1, of what cannot be read; 6 is a number that its type does not
    /// hold. The items read so far stay.
    void setJSON(const QString& text);

    /// Error 5 on an array.
    QString Name(qsizetype index) const;
    /// All names in order. Error 5 on an array.
    QStringList NewEnum() const;

    /// True for an index that an object has an item at. A name is not looked for and gives false, and so does
    /// everything on an array: a name is tested by asking for its Item.
    bool Exists(const JsonKey& key) const;

    /// Removes an item that is there and does nothing otherwise. Error 5 for a name on an array.
    void Remove(const JsonKey& key);

    /// Leaves an object without items.
    void Clear();

    static QStringList Version() { return {u"1.7"_s}; }

private:
    friend class JsonReader;
    friend class JsonWriter;

    bool holds(qsizetype index) const { return index >= 1 && index <= Count(); }
    std::size_t positionOf(qsizetype index) const;
    JsonBag& add(const JsonKey& key, bool array);

    JsonItems items_;
    bool isArray_ = false;
    bool decimalMode_ = false;
};
