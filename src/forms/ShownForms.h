#pragma once

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "forms/Form.h"

namespace forms {

/// What a desktop knows of its windows: the peer of each form that has one, and which are shown, in the order
/// of their showing. `Peer` is the desktop's own class of peers.
template <class Peer>
class ShownForms {
  public:
    void Opened(const Form& form, Peer& peer) { peers_[&form] = &peer; }
    void Shown(const Form& form) { shown_.push_back(&form); }
    void Hidden(const Form& form) { std::erase(shown_, &form); }
    void Gone(const Form& form) {
        peers_.erase(&form);
        Hidden(form);
    }

    /// nullptr for a form without one.
    Peer* PeerOf(const Form& form) const {
        const auto found = peers_.find(&form);
        return found == peers_.end() ? nullptr : found->second;
    }

    bool Empty() const { return shown_.empty(); }
    bool IsShown(const Form& form) const {
        return std::find(shown_.begin(), shown_.end(), &form) != shown_.end();
    }
    /// The form that was shown last; nullptr if none is.
    const Form* Top() const { return shown_.empty() ? nullptr : shown_.back(); }
    Peer* TopPeer() const { return shown_.empty() ? nullptr : PeerOf(*Top()); }
    /// Of the shown forms that have one.
    std::vector<Peer*> Peers() const {
        std::vector<Peer*> peers;
        for (const Form* form : shown_) {
            if (Peer* const peer = PeerOf(*form)) {
                peers.push_back(peer);
            }
        }
        return peers;
    }

    /// What a message of the desktop itself is headed by: the caption of the top form.
    std::string Title() const { return shown_.empty() ? std::string() : Top()->Caption(); }

  private:
    std::unordered_map<const Form*, Peer*> peers_;
    std::vector<const Form*> shown_;
};

} // namespace forms
