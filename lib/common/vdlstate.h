// States that an InitAlloc call makes and a Free call releases: a public
// struct around a plain body whose member `tag` names the kind of the state.
// A state of another kind, or one already freed (freeing clears the tag),
// is refused. The state and the blocks its body points to are malloc'd.
#ifndef VDL_COMMON_STATE_H
#define VDL_COMMON_STATE_H

#include <cstdlib>

#include "vdlcore.h"

#pragma GCC visibility push(hidden)

namespace vdl {

template <class State>
VdlStatus checkState(const State* state, unsigned tag)
{
    if (state == nullptr)
        return vdlStsNullPtrErr;
    return state->body.tag == tag ? vdlStsNoErr : vdlStsContextMatchErr;
}

// A zeroed state; null when memory ran out.
template <class State>
State* newState()
{
    return static_cast<State*>(std::calloc(1, sizeof(State)));
}

// Frees the blocks of a state's body, then the state, its tag cleared.
template <class State, class... Blocks>
void releaseState(State* state, Blocks*... blocks)
{
    (std::free(blocks), ...);
    state->body.tag = 0;
    std::free(state);
}

} // namespace vdl

#pragma GCC visibility pop

#endif
