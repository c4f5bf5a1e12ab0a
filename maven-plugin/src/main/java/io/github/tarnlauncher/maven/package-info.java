/** The goals of the Maven plugin. */
package io.github.tarnlauncher.maven;
