// A player that plays nothing: it writes down what it is told, and the test says what it reports.
#pragma once

#include <vector>

#include "app/dialogs/player.h"

namespace mdlPLM {

/// Makes one player at the first play, like the real thing.
class ScriptedPlayers {
public:
    ScriptedPlayers() = default;
    ScriptedPlayers(const ScriptedPlayers&) = delete;
    ScriptedPlayers& operator=(const ScriptedPlayers&) = delete;
    /// For the MediaPlayer under test, which this outlives.
    PlayerFactory Factory() {
        return [this](const PlayerEvents& events, PlayerFault& /*fault*/) {
            Events = events;
            return std::make_unique<Silent>(*this);
        };
    }

    std::vector<Text> Log;  ///< "play <path>" and "stop"
    PlayerEvents Events;    ///< what the player reports, called by the test

private:
    class Silent : public Player {
    public:
        explicit Silent(ScriptedPlayers& owner) : owner_(owner) {}
        void Play(TextView path) override {
            owner_.Log.push_back(Text(u"play ").append(path));
            owner_.Events.Started(Text(path));
        }
        void Stop() override {
            owner_.Log.emplace_back(u"stop");
            owner_.Events.Ended();
        }

    private:
        ScriptedPlayers& owner_;
    };
};

}  // namespace mdlPLM
