#include <math.h>
#include <stdio.h>
#include <string.h>

// What the rules compute, kept apart from them.

// Feed water less steam, in tonnes an hour.
double feed_balance(double feed, double steam) {
	return feed - steam;
}

// The risk of scale in percent: salt counts more the hotter the water is.
double scale_risk(double conductivity, double temperature) {
	double risk = conductivity / 60.0 * (temperature / 105.0);
	return risk > 100.0 ? 100.0 : risk;
}

// Air over the air needed, from the oxygen left in the flue gas.
double air_ratio(double oxygen) {
	return 21.0 / (21.0 - fmin(oxygen, 20.9));
}

// Heat lost through the stack in percent of the heat fired.
double heat_loss(double stack, double oxygen) {
	return (stack - 20.0) * (0.66 / (21.0 - fmin(oxygen, 20.9)) + 0.009);
}
