#ifndef SIGDB_MIDDLEWARE_INFORECORDS_H
#define SIGDB_MIDDLEWARE_INFORECORDS_H

#include "sigdbref_export.h"

#include "middleware/middlewareenums.h"
#include "middleware/propertyrecord.h"

namespace sigdb {

// The information traffic between the middleware and its clients: coded messages, answers to
// information requests, login announcements, text messages, warning levels and connection
// states, and generic callback messages. The meanings of the numbers (request types, warning
// levels, intValue) are the middleware's.

/// A bare coded message.
class SIGDBREF_EXPORT Message : public PropertyRecord<Message>
{
    SIGDB_PROPERTY_RECORD(Message)
    SIGDB_PROPERTY(1, Message, MessageType)
};
extern template class PropertyRecord<Message>;

/// The answer to an information request: the request's type and the information as texts.
class SIGDBREF_EXPORT MInfoAnswer : public PropertyRecord<MInfoAnswer>
{
    SIGDB_PROPERTY_RECORD(MInfoAnswer)
    SIGDB_PROPERTY(1, RequestType, int)
    SIGDB_PROPERTY(2, InfoStrings, std::vector<std::string>)
};
extern template class PropertyRecord<MInfoAnswer>;

/// A client's login announcement. Every detail is optional; ClientMessagingRequest is
/// unsigned here and travels with the same 32 bits as a signed number.
class SIGDBREF_EXPORT MInfoClientLogin : public PropertyRecord<MInfoClientLogin>
{
    SIGDB_PROPERTY_RECORD(MInfoClientLogin)
    SIGDB_NULLABLE_PROPERTY(1, ClientUserName, std::string)
    SIGDB_NULLABLE_PROPERTY(2, ClientMessagingRequest, unsigned int)
    SIGDB_NULLABLE_PROPERTY(3, ClientType, ClientConnectionType)
    SIGDB_PROPERTY(4, ClientTeams, std::vector<std::string>)
};
extern template class PropertyRecord<MInfoClientLogin>;

/// An information message: its kind and its text lines.
class SIGDBREF_EXPORT MInfoMessage : public PropertyRecord<MInfoMessage>
{
    SIGDB_PROPERTY_RECORD(MInfoMessage)
    SIGDB_PROPERTY(1, MessageType, MIMessageType)
    SIGDB_PROPERTY(2, MessageStrings, std::vector<std::string>)
};
extern template class PropertyRecord<MInfoMessage>;

/// Warning levels and connection states of client and middleware; any subset may be set.
/// The middleware's connection state is a plain int, the client's a ConnectionState.
class SIGDBREF_EXPORT MInfoWarningLevel : public PropertyRecord<MInfoWarningLevel>
{
    SIGDB_PROPERTY_RECORD(MInfoWarningLevel)
    SIGDB_NULLABLE_PROPERTY(1, WarningLevelClient, int)
    SIGDB_NULLABLE_PROPERTY(2, WarningLevelMiddleware, int)
    SIGDB_NULLABLE_PROPERTY(3, ConnectionStateClient, ConnectionState)
    SIGDB_NULLABLE_PROPERTY(4, ConnectionStateMiddleware, int)
};
extern template class PropertyRecord<MInfoWarningLevel>;

/// A generic callback message: its kind, texts and a number. Its accessors keep the property
/// names' lower-case initials (getmessageType, getstringValues, getintValue).
class SIGDBREF_EXPORT CallbackMessage : public PropertyRecord<CallbackMessage>
{
    SIGDB_PROPERTY_RECORD(CallbackMessage)
    SIGDB_PROPERTY(1, messageType, CallbackMessageType)
    SIGDB_PROPERTY(2, stringValues, std::vector<std::string>)
    SIGDB_PROPERTY(3, intValue, int)
};
extern template class PropertyRecord<CallbackMessage>;

/// A list of coded messages.
class SIGDBREF_EXPORT MessageVector : public PropertyRecord<MessageVector>
{
    SIGDB_PROPERTY_RECORD(MessageVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, Message)
};
extern template class PropertyRecord<MessageVector>;

/// A list of information answers.
class SIGDBREF_EXPORT MInfoAnswerVector : public PropertyRecord<MInfoAnswerVector>
{
    SIGDB_PROPERTY_RECORD(MInfoAnswerVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, MInfoAnswer)
};
extern template class PropertyRecord<MInfoAnswerVector>;

/// A list of login announcements.
class SIGDBREF_EXPORT MInfoClientLoginVector : public PropertyRecord<MInfoClientLoginVector>
{
    SIGDB_PROPERTY_RECORD(MInfoClientLoginVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, MInfoClientLogin)
};
extern template class PropertyRecord<MInfoClientLoginVector>;

/// A list of information messages.
class SIGDBREF_EXPORT MInfoMessageVector : public PropertyRecord<MInfoMessageVector>
{
    SIGDB_PROPERTY_RECORD(MInfoMessageVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, MInfoMessage)
};
extern template class PropertyRecord<MInfoMessageVector>;

/// A list of warning levels.
class SIGDBREF_EXPORT MInfoWarningLevelVector : public PropertyRecord<MInfoWarningLevelVector>
{
    SIGDB_PROPERTY_RECORD(MInfoWarningLevelVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, MInfoWarningLevel)
};
extern template class PropertyRecord<MInfoWarningLevelVector>;

/// A list of callback messages.
class SIGDBREF_EXPORT CallbackMessageVector : public PropertyRecord<CallbackMessageVector>
{
    SIGDB_PROPERTY_RECORD(CallbackMessageVector)
    SIGDB_ENTRY_VECTOR_PROPERTY(1, Vector, CallbackMessage)
};
extern template class PropertyRecord<CallbackMessageVector>;

} // namespace sigdb

#endif
