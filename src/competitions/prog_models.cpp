#include "src/competitions/prog_models.h"

#include "src/frame/unavailable.h"

namespace plouvarine {

namespace {

ProgModelDoor& door()
{
    static ProgModelDoor registered;
    return registered;
}

}  // namespace

void set_prog_model_door(ProgModelDoor d)
{
    door() = std::move(d);
}

void open_prog_models(AppContext& app, const ProgModelRequest& request)
{
    if (door())
        door()(app, request);
    else
        not_available(app);
}

}  // namespace plouvarine
