' Does nothing.
