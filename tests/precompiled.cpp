// Nothing but the headers of the target that it belongs to: what they are compiled with is what the tests share.
