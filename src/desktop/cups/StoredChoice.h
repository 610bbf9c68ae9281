#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "desktop/cups/PrintQueue.h"

namespace desktop::cups {

/// What the program has written as a queue's stored settings, over what the user's files say: field by field,
/// as what the program has not changed is to follow the files.
class StoredChoice {
  public:
    /// `settings` are to hold where the files say `byFiles`.
    void Write(const QueueSettings& settings, const QueueSettings& byFiles) {
        Put(orientation_, settings.Orientation, byFiles.Orientation);
        Put(paper_, settings.PaperId, byFiles.PaperId);
        Put(bin_, settings.BinId, byFiles.BinId);
    }

    /// What holds. A paper or bin that the queue no longer offers gives way to the files'.
    QueueSettings Over(QueueSettings byFiles, const std::vector<Paper>& papers,
                       const std::vector<Bin>& bins) const {
        byFiles.Orientation = orientation_.value_or(byFiles.Orientation);
        byFiles.PaperId = Offered(paper_, papers).value_or(byFiles.PaperId);
        byFiles.BinId = Offered(bin_, bins).value_or(byFiles.BinId);
        return byFiles;
    }

  private:
    using Field = std::optional<std::int16_t>;

    static void Put(Field& field, std::int16_t value, std::int16_t byFiles) {
        field = value == byFiles ? Field() : Field(value);
    }

    template <class Item>
    static Field Offered(const Field& id, const std::vector<Item>& items) {
        const bool isOffered =
            id && std::any_of(items.begin(), items.end(), [&id](const Item& item) { return item.Id == *id; });
        return isOffered ? id : Field();
    }

    Field orientation_;
    Field paper_;
    Field bin_;
};

} // namespace desktop::cups
