#include "session/session.h"

Session &session()
{
    static Session values;
    return values;
}
