#pragma once

#include "lookups/json/jsonitems.h"
#include "lookups/json/jsonscanner.h"

#include <QStringView>
#include <array>
#include <memory>
#include <vector>

class JsonBag;

/// Reads the text of a JSON document into a bag; JsonBag tells the grammar and the errors.
///
/// Objects that have the same names in the same order share them: the names of the objects read last are
/// compared with the text before a name is read for itself.
class JsonReader
{
public:
    /// The text must outlive the reader.
    JsonReader(QStringView text, bool decimals) : in_(text), decimals_(decimals) {}

    /// `bag` is empty.
    void read(JsonBag& bag);

private:
    struct Object;

    void container(JsonBag& bag);
    void finish(JsonBag& bag, Object& object);
    void arrayItems();
    void objectItems(Object& object);
    void item(Object& object);
    bool isKnownName(Object& object);
    void addName(Object& object, const QString& name);
    void remember(const std::shared_ptr<JsonNames>& names);

    JsonValue value();
    QString sharedName(QStringView name);

    JsonScanner in_;
    const bool decimals_;
    int depth_ = 0;
    /// Values of the containers under way, those of the innermost at the end.
    std::vector<JsonValue> pending_;
    std::vector<std::shared_ptr<JsonNames>> lastAtDepth_;
    const std::shared_ptr<JsonTexts> texts_ = std::make_shared<JsonTexts>();
    std::array<QString, 64> names_; ///< read before, each at the place that its look gives
    std::array<std::shared_ptr<JsonNames>, 8> recent_;
    std::size_t nextRecent_ = 0;
};
