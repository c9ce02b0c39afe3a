	// The rules look at the plant only when it has told the time.
	if (hora[0] != '\0') {
ZkRules
	}
